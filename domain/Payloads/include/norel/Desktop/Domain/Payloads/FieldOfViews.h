#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"

#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// An angular range in degrees. Its bounds are not limited and need not be symmetric.
class NOREL_PAYLOADS_EXPORT FieldOfViewRange {
public:
    /// The fields of a range before they are checked. A default-constructed Builder is not valid: it has no
    /// unit.
    struct NOREL_PAYLOADS_EXPORT Builder {
        double minimum = 0; ///< degrees, inclusive
        double maximum = 0; ///< degrees, inclusive
        std::string unit;   ///< "deg"

        /// Throws std::invalid_argument when the minimum exceeds the maximum, then when the unit is not
        /// "deg".
        FieldOfViewRange build() const;

        bool operator==(const Builder&) const = default;
    };

    double getMinimum() const { return fields.minimum; }
    double getMaximum() const { return fields.maximum; }
    std::string getUnit() const { return fields.unit; }

    bool operator==(const FieldOfViewRange&) const = default;

private:
    friend ValueAccess;
    using Fields = Builder;

    template <typename MakeFields>
    explicit FieldOfViewRange(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// A selectable field of view.
class NOREL_PAYLOADS_EXPORT FieldOfView {
public:
    struct Builder;

    FieldOfViewRange getView() const { return fields.view; } ///< the scanned range
    /// the range that is kept; no rule relates it to the view
    FieldOfViewRange getFilter() const { return fields.filter; }
    bool getIsDefault() const { return fields.isDefault; }

    bool operator==(const FieldOfView&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        FieldOfViewRange view;
        FieldOfViewRange filter;
        bool isDefault;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit FieldOfView(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// A default-constructed Builder is not valid: its ranges have no unit.
struct NOREL_PAYLOADS_EXPORT FieldOfView::Builder {
    FieldOfViewRange::Builder view;
    FieldOfViewRange::Builder filter;
    bool isDefault = false;

    FieldOfView build() const;
};

/// The fields of view that a lidar offers, in the given order: at least one, exactly one of them the default,
/// no two with the same view.
class NOREL_PAYLOADS_EXPORT FieldOfViews {
public:
    struct Builder;

    /// A reference that is valid as long as this value; for a temporary value, a copy.
    const std::vector<FieldOfView>& getListOfFieldOfViews() const& { return fields.listOfFieldOfViews; }
    std::vector<FieldOfView> getListOfFieldOfViews() && { return std::move(fields.listOfFieldOfViews); }

    bool operator==(const FieldOfViews&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        std::vector<FieldOfView> listOfFieldOfViews;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit FieldOfViews(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws std::invalid_argument also when the list violates a rule; a default-constructed Builder is not
/// valid.
struct NOREL_PAYLOADS_EXPORT FieldOfViews::Builder {
    std::vector<FieldOfView::Builder> listOfFieldOfViews;

    FieldOfViews build() const;
};

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Angles3.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"

#include <optional>
#include <string>

namespace norel::Desktop::Domain::Payloads {

/// A named text document with a calibration. Both texts are free-form and may be empty.
class NOREL_PAYLOADS_EXPORT CalibrationDocument {
public:
    /// The fields of a document; valid with any contents.
    struct NOREL_PAYLOADS_EXPORT Builder {
        std::string name;
        std::string content; ///< the whole text

        /// Does not throw for any contents.
        CalibrationDocument build() const;

        bool operator==(const Builder&) const = default;
    };

    std::string getName() const { return fields.name; }
    std::string getContent() const { return fields.content; }

    bool operator==(const CalibrationDocument&) const = default;

private:
    friend ValueAccess;
    using Fields = Builder;

    template <typename MakeFields>
    explicit CalibrationDocument(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// How the measurements of the lidar are georeferenced: its fields of view, and its boresight calibration
/// given as angles, as a document or both.
class NOREL_PAYLOADS_EXPORT Georeferencing {
public:
    struct Builder;

    FieldOfViews getFieldOfViews() const { return fields.fieldOfViews; }
    /// "deg"; empty when absent
    std::optional<Angles3> getBoresightAngles() const { return fields.boresightAngles; }
    /// empty when absent
    std::optional<CalibrationDocument> getCalibrationDocument() const { return fields.calibrationDocument; }

    bool operator==(const Georeferencing&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        FieldOfViews fieldOfViews;
        std::optional<Angles3> boresightAngles;
        std::optional<CalibrationDocument> calibrationDocument;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Georeferencing(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Also throws std::runtime_error when there are neither boresight angles nor a calibration document.
struct NOREL_PAYLOADS_EXPORT Georeferencing::Builder {
    FieldOfViews::Builder fieldOfViews;
    std::optional<Angles3::Builder> boresightAngles;
    std::optional<CalibrationDocument::Builder> calibrationDocument;

    Georeferencing build() const;
};

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"

#include <limits>
#include <map>
#include <string>

namespace norel::Desktop::Domain::Payloads {

/// A bounded numeric setting: its value, the inclusive range that the value, the default and every preset lie
/// in, and the resolution and unit of all of them. T is double, unsigned int or int.
///
/// Immutable once built. The library never converts between units and never rounds a value to its precision.
/// As for every value of this library, distinct objects may be used by distinct threads, and one object may
/// be read by several threads at once.
template <typename T>
class Parameter {
public:
    /// The fields of a Parameter before they are checked.
    struct Builder {
        T value = 0;
        T minimum = std::numeric_limits<T>::lowest(); ///< inclusive
        T maximum = std::numeric_limits<T>::max();    ///< inclusive
        T defaultValue = 0;
        std::map<std::string, T> presets; ///< named values
        double precision =
            1.0; ///< the resolution, a power of ten: its base-10 logarithm is an integer within 0.001
        std::string unit; ///< "sec", "m", "deg", "arcmin", "pts/m^2", "px" or empty for none

        /// Throws std::invalid_argument that begins "Profile Parameter: " for the first violated rule. They
        /// are checked in this order: bounds, default, presets, value, unit, precision.
        NOREL_PAYLOADS_EXPORT Parameter build() const;

        bool operator==(const Builder&) const = default;
    };

    T getValue() const { return fields.value; }
    T getMinimum() const { return fields.minimum; }
    T getMaximum() const { return fields.maximum; }
    T getDefaultValue() const { return fields.defaultValue; }
    std::map<std::string, T> getPresets() const { return fields.presets; }
    double getPrecision() const { return fields.precision; }
    std::string getUnit() const { return fields.unit; }

    bool operator==(const Parameter&) const = default;

private:
    friend ValueAccess;
    using Fields = Builder;

    template <typename MakeFields>
    explicit Parameter(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

} // namespace norel::Desktop::Domain::Payloads

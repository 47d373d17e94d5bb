#pragma once

#include "norel/Desktop/DateTime/DateTime.h"
#include "norel/Desktop/DateTime/Export.h"

#include <stdexcept>
#include <string>

namespace norel::Desktop::DateTime {

/// Conversion between date-times and ISO 8601 text, independent of the locale and the time-zone database.
/// Thread-safe.
class DateTimeConversion {
public:
    /// A text is not a date-time, or a date-time is outside the years 0 to 9999.
    struct NOREL_DATETIME_EXPORT InvalidArgumentError : std::invalid_argument {
        using std::invalid_argument::invalid_argument;
    };

    /// The form "2021-10-05T21:18:26+00:00", with a fraction ("26.25") only where it is not zero.
    /// fromIso8601 converts it back to an equal DateTime. Throws InvalidArgumentError outside the years 0 to
    /// 9999.
    NOREL_DATETIME_EXPORT static std::string toIso8601(const DateTime& dateTime);

    /// Reads the form above. The offset may also be "Z" or from -23:59 to +23:59, and the seconds may have a
    /// fraction after "." or ",", whose digits beyond the nanosecond are ignored.
    /// Throws InvalidArgumentError for anything else, for a date that does not exist (February 30) and for an
    /// instant outside the years 0 to 9999.
    NOREL_DATETIME_EXPORT static DateTime fromIso8601(const std::string& text);
};

} // namespace norel::Desktop::DateTime

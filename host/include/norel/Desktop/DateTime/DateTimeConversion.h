#pragma once

#include "norel/Desktop/DateTime/DateTime.h"
#include "norel/Desktop/DateTime/Export.h"

#include <stdexcept>
#include <string>

namespace norel::Desktop::DateTime {

/// Date-times as ISO 8601 text, without regard to locale or time-zone database. Any thread may call it.
class DateTimeConversion {
public:
    /// A text is no date-time, or a date-time lies outside the years 0 to 9999.
    class NOREL_DATETIME_EXPORT InvalidArgumentError : public std::invalid_argument {
    public:
        using std::invalid_argument::invalid_argument;
        InvalidArgumentError(const InvalidArgumentError&) = default;
        InvalidArgumentError& operator=(const InvalidArgumentError&) = default;
        ~InvalidArgumentError() override;
    };

    /// The form "2021-10-05T21:18:26+00:00", with a fraction ("26.25") only when there is one.
    /// Reads back to an equal DateTime. Throws InvalidArgumentError outside the years 0 to 9999.
    NOREL_DATETIME_EXPORT static std::string toIso8601(const DateTime& dateTime);

    /// Reads the form above; the offset may be "Z" or any from -23:59 to +23:59, and the seconds may have a
    /// fraction after "." or ",", of which the digits past the nanosecond are dropped.
    /// Throws InvalidArgumentError for anything else, and for a date that no calendar has.
    NOREL_DATETIME_EXPORT static DateTime fromIso8601(const std::string& text);
};

} // namespace norel::Desktop::DateTime

#pragma once

#include "norel/Desktop/DateTime/DateTime.h"

#include <stdexcept>
#include <string>

namespace norel::Desktop::DateTime {

struct DateTimeConversion {
    struct InvalidArgumentError : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    static std::string toIso8601(const DateTime& dateTime);
    static DateTime fromIso8601(const std::string& text);
};

} // namespace norel::Desktop::DateTime

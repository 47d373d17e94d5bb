#pragma once

#include "norel/Desktop/DateTime/DateTime.h"

#include <ctime>
#include <regex>
#include <stdexcept>
#include <string>

namespace norel::Desktop::DateTime {

struct DateTimeConversion {
    struct InvalidArgumentError : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    static std::string toIso8601(const DateTime& dateTime) {
        const auto instant = std::chrono::floor<std::chrono::seconds>(dateTime.instant);
        const auto fraction = (dateTime.instant - instant).count(); // ns
        const std::time_t time = std::chrono::system_clock::to_time_t(instant);
        char text[64] = "";
        std::strftime(text, sizeof text, "%FT%T", std::gmtime(&time));
        return text + (fraction == 0 ? "" : "." + std::to_string(1000000000 + fraction).substr(1)) + "+00:00";
    }

    static DateTime fromIso8601(const std::string& text) {
        using namespace std::chrono;
        static const std::regex form(R"((\d{4})-(\d\d)-(\d\d)T([01]\d|2[0-3]):([0-5]\d):([0-5]\d))"
                                     R"((?:\.(\d+))?(?:Z|([+-])([01]\d|2[0-3]):([0-5]\d)))");
        std::smatch parts;
        std::regex_match(text, parts, form);
        const auto number = [&](std::size_t part) {
            return parts[part].matched ? std::stoi(parts[part]) : 0;
        };
        const year_month_day date(year(number(1)), month(unsigned(number(2))), day(unsigned(number(3))));
        if (!date.ok())
            throw InvalidArgumentError("\"" + text +
                                       "\" is not an ISO 8601 date-time such as 2021-10-05T21:18:26+00:00");
        const minutes offset = hours(number(9)) + minutes(number(10));
        return DateTime(sys_days(date) + hours(number(4)) + minutes(number(5)) + seconds(number(6)) +
                            (parts[8] == "-" ? offset : -offset),
                        nanoseconds(std::stol((parts[7].str() + "000000000").substr(0, 9))));
    }
};

} // namespace norel::Desktop::DateTime

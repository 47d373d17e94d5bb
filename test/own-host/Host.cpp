#include "norel/Desktop/DateTime/DateTimeConversion.h"
#include "norel/Desktop/Networking/Http/HttpClient.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"
#include "norel/Desktop/Utils/Errors.h"
#include "norel/Desktop/Utils/StringConverter.h"
#include "norel/Desktop/Utils/StringFunctions.h"

#include <charconv>
#include <cstdio>
#include <regex>

namespace norel::Desktop {

namespace DateTime {

using namespace std::chrono;

std::string DateTimeConversion::toIso8601(const DateTime& dateTime) {
    const auto day = floor<days>(dateTime.instant);
    const year_month_day date(day);
    const hh_mm_ss time(dateTime.instant - day);
    if (date.year() < year(0) || date.year() > year(9999))
        throw InvalidArgumentError("the year must lie in 0 to 9999");
    char text[64], fraction[16] = "";
    if (time.subseconds() != nanoseconds(0))
        std::snprintf(fraction, sizeof fraction, ".%09ld", long(time.subseconds().count()));
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02ld:%02ld:%02ld%s+00:00", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), long(time.hours().count()),
                  long(time.minutes().count()), long(time.seconds().count()), fraction);
    return text;
}

DateTime DateTimeConversion::fromIso8601(const std::string& text) {
    static const std::regex form(R"((\d{4})-(\d\d)-(\d\d)T([01]\d|2[0-3]):([0-5]\d):([0-5]\d))"
                                 R"((?:[.,](\d+))?(?:Z|([+-])([01]\d|2[0-3]):([0-5]\d)))");
    std::smatch parts;
    const bool isMatch = std::regex_match(text, parts, form);
    const auto number = [&](std::size_t part) { return parts[part].matched ? std::stoi(parts[part]) : 0; };
    const year_month_day date(year(isMatch ? number(1) : 0), month(isMatch ? unsigned(number(2)) : 0),
                              day(isMatch ? unsigned(number(3)) : 0));
    if (!date.ok())
        throw InvalidArgumentError("\"" + text +
                                   "\" is not an ISO 8601 date-time such as 2021-10-05T21:18:26+00:00");
    const minutes offset = hours(number(9)) + minutes(number(10));
    const nanoseconds fraction(std::stol((parts[7].str() + "000000000").substr(0, 9)));
    return DateTime(sys_days(date) + hours(number(4)) + minutes(number(5)) + seconds(number(6)) +
                        (parts[8] == "-" ? offset : -offset),
                    fraction);
}

} // namespace DateTime

namespace Utils {

std::string ConvertToGenericString::convertToGenericString(double number) {
    char text[32];
    return std::string(text, std::to_chars(text, std::end(text), number).ptr);
}

std::string ConvertToGenericString::convertToGenericString(unsigned int number) {
    return std::to_string(number);
}

std::string ConvertToGenericString::convertToGenericString(int number) { return std::to_string(number); }

std::string
ConvertToGenericString::convertToGenericString(const Networking::Http::HttpClient::Response& response) {
    return "status " + std::to_string(response.code);
}

std::vector<std::string> StringFunctions::split(const std::string& text, const std::string& delimiter) {
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    for (std::size_t end; (end = text.find(delimiter, begin)) != std::string::npos;
         begin = end + delimiter.size())
        pieces.push_back(text.substr(begin, end - begin));
    pieces.push_back(text.substr(begin));
    return pieces;
}

std::string StringConverter::toUpperCase(const std::string& text) {
    std::string result = text;
    for (char& c : result)
        c = c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
    return result;
}

void throwAssertionFailure(const char* message, const char* condition, const SourceCodeLocation& location) {
    throwUnreachableCodeError((std::string(message) + ": " + condition).c_str(), location);
}

void throwUnreachableCodeError(const char* message, const SourceCodeLocation& location) {
    throw UnreachableCodeError(std::string(message) + " [" + location.file + ":" +
                               std::to_string(location.line) + "]");
}

} // namespace Utils

} // namespace norel::Desktop

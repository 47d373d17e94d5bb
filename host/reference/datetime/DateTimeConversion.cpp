#include "norel/Desktop/DateTime/DateTimeConversion.h"

#include "text/PrintableText.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace norel::Desktop::DateTime {
namespace {

using namespace std::chrono;

constexpr sys_seconds FIRST = sys_days(year(0) / January / 1);
constexpr sys_seconds LAST = sys_days(year(10000) / January / 1) - seconds(1);
constexpr std::size_t FRACTION_DIGITS = 9; // of nanoseconds
constexpr std::size_t MAXIMUM_SHOWN_BYTES = 64;

/// Reads an ISO 8601 text from front to back; `failed` is set by the first piece that does not match.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest(text) {}

    bool take(char expected) {
        if (rest.empty() || rest.front() != expected)
            return false;
        rest.remove_prefix(1);
        return true;
    }

    void expect(char expected) { failed |= !take(expected); }

    /// Reads a number of exactly that many digits, at most `maximum`.
    int number(std::size_t digits, int maximum) {
        int value = 0;
        const std::string_view taken = takeDigits();
        for (const char digit : taken.substr(0, digits))
            value = 10 * value + (digit - '0');
        failed |= taken.size() != digits || value > maximum;
        return value;
    }

    /// Reads one or more digits as a decimal fraction of a second.
    nanoseconds fraction() {
        const std::string_view taken = takeDigits();
        failed |= taken.empty();
        std::int64_t value = 0;
        for (std::size_t i = 0; i < FRACTION_DIGITS; ++i)
            value = 10 * value + (i < taken.size() ? taken[i] - '0' : 0);
        return nanoseconds(value);
    }

    bool isDone() const { return !failed && rest.empty(); }

private:
    std::string_view takeDigits() {
        const std::string_view digits =
            rest.substr(0, std::min(rest.find_first_not_of("0123456789"), rest.size()));
        rest.remove_prefix(digits.size());
        return digits;
    }

    std::string_view rest;
    bool failed = false;
};

} // namespace

std::string DateTimeConversion::toIso8601(const DateTime& dateTime) {
    const sys_seconds instant = dateTime.getSeconds();
    if (instant < FIRST || instant > LAST)
        throw InvalidArgumentError("a date-time outside the years 0 to 9999 has no ISO 8601 text");
    const auto day = floor<days>(instant);
    const year_month_day date(day);
    const hh_mm_ss time(instant - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), int(time.hours().count()),
                  int(time.minutes().count()), int(time.seconds().count()));
    std::string result = text;
    if (dateTime.getFraction() != nanoseconds::zero()) {
        std::snprintf(text, sizeof text, ".%09lld", static_cast<long long>(dateTime.getFraction().count()));
        result += text;
        result.erase(result.find_last_not_of('0') + 1);
    }
    return result + "+00:00";
}

DateTime DateTimeConversion::fromIso8601(const std::string& text) {
    Scanner scanner(text);
    const year y(scanner.number(4, 9999));
    scanner.expect('-');
    const month m(static_cast<unsigned>(scanner.number(2, 12)));
    scanner.expect('-');
    const day d(static_cast<unsigned>(scanner.number(2, 31)));
    scanner.expect('T');
    const hours hour(scanner.number(2, 23));
    scanner.expect(':');
    const minutes minute(scanner.number(2, 59));
    scanner.expect(':');
    const seconds second(scanner.number(2, 59));
    const nanoseconds fraction =
        scanner.take('.') || scanner.take(',') ? scanner.fraction() : nanoseconds::zero();
    minutes offset{};
    if (!scanner.take('Z')) {
        const bool isBehind = scanner.take('-');
        if (!isBehind)
            scanner.expect('+');
        offset = hours(scanner.number(2, 23));
        scanner.expect(':');
        offset += minutes(scanner.number(2, 59));
        if (isBehind)
            offset = -offset;
    }
    const year_month_day date(y, m, d);
    const sys_seconds instant =
        scanner.isDone() && date.ok() ? sys_days(date) + hour + minute + second - offset : sys_seconds::max();
    if (instant < FIRST || instant > LAST)
        throw InvalidArgumentError('"' + Text::printableText(text, MAXIMUM_SHOWN_BYTES) +
                                   "\" is not an ISO 8601 date-time such as 2021-10-05T21:18:26+00:00");
    return DateTime(instant, fraction);
}

} // namespace norel::Desktop::DateTime

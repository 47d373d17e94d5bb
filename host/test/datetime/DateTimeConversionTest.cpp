#include "norel/Desktop/DateTime/DateTimeConversion.h"

#include <gmock/gmock.h>
#include <string>

namespace norel::Desktop::DateTime {
namespace {

using namespace std::chrono;
using testing::ThrowsMessage;
using Conversion = DateTimeConversion;

TEST(DateTimeConversion, ReadsAndWritesInstants) {
    struct {
        const char *text, *written;
        std::int64_t secondsSinceEpoch;
        int fraction; // ns
    } const cases[] = {
        {"1970-01-01T00:00:00+00:00", "1970-01-01T00:00:00+00:00", 0, 0},
        {"2021-10-05T21:18:26+00:00", "2021-10-05T21:18:26+00:00", 1633468706, 0},
        {"2021-10-05T21:18:26Z", "2021-10-05T21:18:26+00:00", 1633468706, 0},
        {"2021-10-06T02:48:26+05:30", "2021-10-05T21:18:26+00:00", 1633468706, 0},
        {"2021-10-05T21:18:26.250+00:00", "2021-10-05T21:18:26.25+00:00", 1633468706, 250000000},
        {"2021-10-05T21:18:26,000000001Z", "2021-10-05T21:18:26.000000001+00:00", 1633468706, 1},
        {"2021-10-05T21:18:26.9999999999Z", "2021-10-05T21:18:26.999999999+00:00", 1633468706, 999999999},
        {"1969-12-31T23:59:59.5Z", "1969-12-31T23:59:59.5+00:00", -1, 500000000},
        {"2000-02-29T23:59:59-00:01", "2000-03-01T00:00:59+00:00", 951868859, 0},
        {"0000-01-01T00:00:00Z", "0000-01-01T00:00:00+00:00", -62167219200, 0},
        {"9999-12-31T23:59:59.999999999Z", "9999-12-31T23:59:59.999999999+00:00", 253402300799, 999999999},
    };
    for (const auto& [text, written, secondsSinceEpoch, fraction] : cases) {
        const DateTime expected(sys_seconds{seconds(secondsSinceEpoch)}, nanoseconds(fraction));
        EXPECT_EQ(Conversion::fromIso8601(text), expected) << text;
        EXPECT_EQ(Conversion::toIso8601(expected), written);
        EXPECT_EQ(Conversion::fromIso8601(written), expected) << written;
    }
}

TEST(DateTimeConversion, RejectsWhatIsNotADateTime) {
    const char* const rejected[] = {
        "2021-10-05T21:18:26",       "2021-10-05 21:18:26+00:00", "2021-10-05t21:18:26z",
        " 2021-10-05T21:18:26Z",     "2021-10-05T21:18:26Z ",     "2021-10-05T21:18:26+00:00Z",
        "2021-10-05T21:18:26+0000",  "2021-10-05T21:18:26+00",    "2021-10-05T21:18:26+24:00",
        "2021-10-05T21:18:26+00:60", "2021-10-05T21:18:26+-1:00", "2021-10-05T21:18:26.Z",
        "2021-10-05T21:18:60Z",      "2021-10-05T21:60:00Z",      "2021-10-05T24:00:00Z",
        "2021-10-05T21:18Z",         "2021-10-5T21:18:26Z",       "021-10-05T21:18:26Z",
        "12021-10-05T21:18:26Z",     "2021-00-05T21:18:26Z",      "2021-13-05T21:18:26Z",
        "2021-10-00T21:18:26Z",      "2021-04-31T21:18:26Z",      "2021-02-29T21:18:26Z",
        "1900-02-29T21:18:26Z",      "0000-01-01T00:00:00+00:01", "9999-12-31T23:59:59-00:01"};
    std::vector<std::pair<std::string, std::string>> cases = {
        // the text, and what the message shows of it
        {"", ""},
        {"2021-10-05", "2021-10-05"},
        {std::string("2021-10-05T21:18:26Z\0", 21), R"(2021-10-05T21:18:26Z\u0000)"},
        {"\x1B[2Jé\x7F", R"(\u001b[2Jé\u007f)"},
        {std::string(1000, '9'), std::string(64, '9') + "..."}};
    for (const char* text : rejected) // the last two are outside 0 to 9999 in UTC
        cases.emplace_back(text, text);
    for (const auto& [text, shown] : cases)
        EXPECT_THAT([&text = text] { Conversion::fromIso8601(text); },
                    ThrowsMessage<Conversion::InvalidArgumentError>(
                        "\"" + shown + "\" is not an ISO 8601 date-time such as 2021-10-05T21:18:26+00:00"));
}

TEST(DateTimeConversion, WritesTheYears0To9999Only) {
    const sys_seconds first = sys_days(year(0) / January / 1);
    const sys_seconds end = sys_days(year(10000) / January / 1);
    for (const sys_seconds instant : {first - seconds(1), end, sys_seconds::min(), sys_seconds::max()})
        EXPECT_THAT([&] { Conversion::toIso8601(DateTime(instant)); },
                    ThrowsMessage<Conversion::InvalidArgumentError>(
                        "a date-time outside the years 0 to 9999 has no ISO 8601 text"));
}

} // namespace
} // namespace norel::Desktop::DateTime

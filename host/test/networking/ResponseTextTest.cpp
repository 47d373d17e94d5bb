#include "norel/Desktop/Networking/Http/HttpClient.h"

#include <gtest/gtest.h>

namespace norel::Desktop::Networking::Http {
namespace {

TEST(ResponseText, ShowsTheStatusAndABoundedPrintableBeginningOfTheBody) {
    using namespace std::string_literals;
    const std::string a199(199, 'a');
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"a\r\n\tb\x1b[31m\x7f\0c"s, R"(a\r\n\tb\x1b[31m\x7f\x00c)"},
        {"gr\u00fc\u00df \u20ac \U0001F600", "gr\u00fc\u00df \u20ac \U0001F600"},
        {"\u009b2J\u00a0", "\\xc2\\x9b2J\u00a0"},    // a control character of two bytes
        {"\xff\xc0\xaf\x80", R"(\xff\xc0\xaf\x80)"}, // no UTF-8 at all
        {"\xe0\x80\xaf\xf0\x80\x80\xaf", R"(\xe0\x80\xaf\xf0\x80\x80\xaf)"}, // longer than needed
        {"\xed\xa0\x80\xf4\x90\x80\x80", R"(\xed\xa0\x80\xf4\x90\x80\x80)"}, // surrogate, beyond Unicode
        {"\xe2\x82", R"(\xe2\x82)"},                                         // ends within a character
        {a199 + "b", a199 + "b"},
        {a199 + "bc", a199 + "b..."},
        {a199 + "\u00fc", a199 + "..."},
    };
    for (const auto& [body, shown] : cases)
        EXPECT_EQ(Utils::ConvertToGenericString::convertToGenericString(HttpClient::Response{404, body}),
                  body.empty() ? "HTTP status 404" : "HTTP status 404, body \"" + shown + "\"");
}

} // namespace
} // namespace norel::Desktop::Networking::Http

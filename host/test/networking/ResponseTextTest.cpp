#include "norel/Desktop/Networking/Http/HttpClient.h"

#include <gtest/gtest.h>

namespace norel::Desktop::Networking::Http {
namespace {

TEST(ResponseText, ShowsTheStatusAndABoundedPrintableBeginningOfTheBody) {
    const std::string a199(199, 'a');
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"gr\u00fc\u00df\r\n\x1b[31m\xff", "gr\u00fc\u00df\\r\\n\\u001b[31m\\xff"},
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

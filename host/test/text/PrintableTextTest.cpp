#include "text/PrintableText.h"

#include <gtest/gtest.h>

#include <utility>

namespace norel::Desktop::Text {
namespace {

using namespace std::string_literals;

TEST(PrintableText, EscapesWhatIsInvisibleOrNotUtf8) {
    const std::pair<std::string, std::string> cases[] = {
        {"a\r\n\tb\x1b[31m\x7f\0c"s, R"(a\r\n\tb\u001b[31m\u007f\u0000c)"},
        {"gr\u00fc\u00df\u00a0\u20ac \U0001F600 \u2764\ufe0f \U0001F468\u200d\U0001F469",
         "gr\u00fc\u00df\u00a0\u20ac \U0001F600 \u2764\ufe0f \U0001F468\u200d\U0001F469"},
        {"\u009b2J\u202e\u2028\ufeff", R"(\u009b2J\u202e\u2028\ufeff)"},
        {"a\u00adb\u034f\u180e\u2063", R"(a\u00adb\u034f\u180e\u2063)"},
        {"\u115f\u1160\u3164\uffa0", R"(\u115f\u1160\u3164\uffa0)"},
        {"\U000E0000\U000E0041\U000E007F", R"(\udb40\udc00\udb40\udc41\udb40\udc7f)"},
        {"\xff\xc0\xaf\x80", R"(\xff\xc0\xaf\x80)"},
        {"\xe0\x80\xaf\xf0\x80\x80\xaf", R"(\xe0\x80\xaf\xf0\x80\x80\xaf)"}, // overlong
        {"\xed\xa0\x80\xf4\x90\x80\x80", R"(\xed\xa0\x80\xf4\x90\x80\x80)"}, // surrogate, beyond U+10FFFF
        {"\xe2\x82", R"(\xe2\x82)"},                                         // ends within a character
    };
    for (const auto& [text, printable] : cases)
        EXPECT_EQ(printableText(text), printable);
    EXPECT_EQ(printableJson("{\n    \"a\u00ad\x7f\"\n}\r"), "{\n    \"a\\u00ad\\u007f\"\n}\\r");
}

TEST(PrintableText, CutsAtWholeCharacters) {
    EXPECT_EQ(printableText("a\u20ac", 4), "a\u20ac");
    EXPECT_EQ(printableText("a\u20ac", 3), "a...");
    EXPECT_EQ(printableText("a\nb", 2), "a\\n...");
    EXPECT_EQ(getDisplayWidth("e\u0301 \u6f22\U0001F600"), 6U);
    EXPECT_EQ(shortened("\u6f22\u5b57", 4), "\u6f22\u5b57");
    EXPECT_EQ(shortened("e\u0301\u6f22\u5b57", 4), "e\u0301\u6f22…");
    EXPECT_EQ(shortened("\u6f22\u5b57", 2), "…");
}

} // namespace
} // namespace norel::Desktop::Text

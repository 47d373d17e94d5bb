#include "norel/Desktop/Utils/ConvertToGenericString.h"
#include "norel/Desktop/Utils/Errors.h"
#include "norel/Desktop/Utils/StringConverter.h"
#include "norel/Desktop/Utils/StringFunctions.h"

#include <gmock/gmock.h>
#include <limits>
#include <locale>

namespace norel::Desktop::Utils {
namespace {

using testing::ThrowsMessage;

struct GroupingLocale : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }

    std::string do_grouping() const override { return "\3"; }
};

TEST(ConvertToGenericString, GivesTheShortestTextInEveryLocale) {
    using ConvertToGenericString::convertToGenericString;
    const std::locale previous = std::locale::global(std::locale(std::locale::classic(), new GroupingLocale));
    const std::pair<double, const char*> cases[] = {
        {0.5, "0.5"},
        {1e-05, "1e-05"},
        {0, "0"},
        {1234.5, "1234.5"},
        {0.1 + 0.2, "0.30000000000000004"},
        {std::numeric_limits<double>::lowest(), "-1.7976931348623157e+308"}};
    for (const auto& [number, text] : cases)
        EXPECT_EQ(convertToGenericString(number), text);
    EXPECT_EQ(convertToGenericString(std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(convertToGenericString(std::numeric_limits<unsigned int>::max()), "4294967295");
    std::locale::global(previous);
}

TEST(StringFunctions, SplitKeepsEmptyPieces) {
    struct {
        const char *text, *delimiter;
        std::vector<std::string> pieces;
    } const cases[] = {{"a b c", " ", {"a", "b", "c"}},
                       {"", " ", {""}},
                       {" a  b ", " ", {"", "a", "", "b", ""}},
                       {"a--b---c", "--", {"a", "b", "-c"}},
                       {"ab", "", {"ab"}}};
    for (const auto& [text, delimiter, pieces] : cases)
        EXPECT_EQ(StringFunctions::split(text, delimiter), pieces) << text;
}

TEST(StringConverter, ConvertsAsciiLettersOnly) {
    EXPECT_EQ(StringConverter::toUpperCase("azAZ {`09é\xFF"), "AZAZ {`09é\xFF");
}

TEST(Errors, ContainMessageAndLocation) {
    EXPECT_THAT(
        [] {
            throwAssertionFailure("pieces do not fit", "size == 2", {"Size.cpp", 42});
        },
        ThrowsMessage<AssertionFailure>("pieces do not fit: size == 2 [Size.cpp:42]"));
    EXPECT_THAT(
        [] {
            throwUnreachableCodeError("not for this storage", {"Storage.cpp", 4294967295U});
        },
        ThrowsMessage<UnreachableCodeError>("not for this storage [Storage.cpp:4294967295]"));
}

} // namespace
} // namespace norel::Desktop::Utils

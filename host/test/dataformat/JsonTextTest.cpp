#include "norel/Desktop/DataFormat/Json.h"

#include <functional>
#include <gmock/gmock.h>
#include <limits>

namespace norel::Desktop::DataFormat {
namespace {

using testing::ThrowsMessage;
const std::string PARSING = "[json.exception.parse_error.101] parse error at line ";

TEST(JsonText, ReadsBackWhatItWrites) {
    const std::string text =
        "{\n    \"z\": {\n        \"list\": [\n            1,\n            -2.5,\n            [],\n"
        "            {}\n        ],\n        \"\": null\n    },\n    \"a\": \"\\\"\\\\\\u0000é\"\n}";
    EXPECT_EQ(Json::fromString(text).toString(4), text);
    EXPECT_EQ(Json::fromString(" [1 , {\"a\":\r\n[ true]}]\t").toString(-1), R"([1,{"a":[true]}])");
    // The last of duplicate keys wins.
    EXPECT_EQ(Json::fromString(R"({"a":1,"b":[2],"a":{"x":1,"x":2},"c":3,"b":4})").toString(-1),
              R"({"a":{"x":2},"b":4,"c":3})");
}

TEST(JsonText, RefusesTextsThatAreNotOneValue) {
    const std::string value = "syntax error while parsing value - ";
    const std::pair<std::string, std::string> cases[] = {
        {"", PARSING + "1, column 1: " + value + "unexpected end of input; expected '[', '{', or a literal"},
        {"1 2", PARSING + "1, column 3: " + value + "unexpected number literal; expected end of input"},
        {"{\"a\":1,}",
         PARSING +
             "1, column 8: syntax error while parsing object key - unexpected '}'; expected string literal"},
        {"[1",
         PARSING + "1, column 3: syntax error while parsing array - unexpected end of input; expected ']'"},
        {"// note\n1", PARSING + "1, column 1: " + value + "invalid literal; last read: '/'"},
        {"1e400", "[json.exception.out_of_range.406] number overflow parsing '1e400'"},
        {std::string("[1]\0{}", 6), "a JSON text cannot hold the NUL character found at byte 4"}};
    for (const auto& [text, message] : cases)
        EXPECT_THAT([&text = text] { Json::fromString(text); }, ThrowsMessage<Json::JsonError>(message))
            << text;
}

std::string nested(std::size_t depth, const std::string& open, const std::string& close) {
    std::string text;
    for (std::size_t i = 0; i < 2 * depth; ++i)
        text += i < depth ? open : close;
    return text;
}

TEST(JsonText, BoundsDepthMemoryAndErrors) {
    const std::string deepest = nested(100, "[", "]");
    EXPECT_EQ(Json::fromString(deepest).toString(-1), deepest);
    std::string emptyArrays = "[0";
    while (emptyArrays.size() < 20000)
        emptyArrays += "," + nested(99, "[", "]");
    std::string cut = PARSING + "1, column 9002: syntax error while parsing value - invalid string: missing "
                                "closing quote; last read: '\"";
    cut.resize(500, 'x');
    const std::string tooDeep = "arrays and objects nest deeper than 100 levels at line ";
    const std::pair<std::string, std::string> refused[] = {
        {"[\n[]," + deepest + "]", tooDeep + "2, column 103"},
        {nested(51, "[{\"a\":", "}]"), tooDeep + "1, column 301"},
        {std::string(1000000, '['), tooDeep + "1, column 101"},
        {"\"" + std::string(9000, 'x'), cut + "..."}};
    for (const auto& [text, message] : refused)
        EXPECT_THAT([&text = text] { Json::fromString(text); }, ThrowsMessage<Json::JsonError>(message));
    if constexpr (sizeof(void*) == 8) { // values with smaller pointers take less
        EXPECT_THAT(
            [&] { Json::fromString(emptyArrays + "]"); },
            ThrowsMessage<Json::JsonError>("the value takes more than 24 times the memory of its text"));
    }
}

TEST(JsonText, RefusesToWriteWhatCannotBeReadBack) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::string notFinite = "JSON cannot hold a number that is not finite";
    const std::string notUtf8 = "[json.exception.type_error.316] invalid UTF-8 byte at index 1: 0xFF";
    const std::string incomplete = "[json.exception.type_error.316] incomplete UTF-8 string; last byte: 0xC3";
    const std::string tooDeep = "arrays and objects nest deeper than 100 levels";
    const std::map<std::string, double> notANumber{{"n", std::numeric_limits<double>::quiet_NaN()}};
    const Json deepest = Json::fromString(nested(100, "[", "]"));
    Json incompleteKey;
    incompleteKey.set("\xC3", 1);
    const std::vector<Json> both{Json(std::map<std::string, int>{{"a", 1}}), incompleteKey, notANumber};
    const Json array(both);
    Json::Writer writer(-1), deepWriter(512);
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { Json(infinity).toString(4); }, notFinite},
        {[&] { Json(notANumber).toString(4); }, notFinite},
        {[&] { writer.write(-infinity); }, notFinite},
        {[&] { Json(std::vector<Json>{deepest}).toString(4); }, tooDeep},
        {[&] {
             for (;;)
                 deepWriter.beginArray();
         },
         tooDeep},
        {[&] { Json("a\xFF").toString(4); }, notUtf8},
        {[&] { writer.write("a\xFF"); }, notUtf8},
        {[&] { incompleteKey.toString(4); }, incomplete},
        {[&] { array.toString(4); }, notFinite},
        {[&] { Json(both).toString(4); }, notFinite}, // a temporary
        {[&] { Json::Writer::Key("\xC3"); }, incomplete}};
    for (const auto& [operation, message] : cases)
        EXPECT_THAT(operation, ThrowsMessage<Json::JsonError>(message));
}

} // namespace
} // namespace norel::Desktop::DataFormat

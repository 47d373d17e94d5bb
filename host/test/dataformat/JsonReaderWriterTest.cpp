#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Utils/StringFunctions.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <random>
#include <string>

namespace norel::Desktop::DataFormat {
namespace {

using namespace std::string_literals;
using nlohmann::ordered_json;

/// Reads the values of the tree, which must be next in the text, and writes them.
void copy(const ordered_json& tree, Json::Reader& reader, Json::Writer& writer) {
    if (tree.is_object()) {
        reader.beginObject();
        writer.beginObject();
        std::string_view key;
        for (const auto& member : tree.items()) {
            ASSERT_TRUE(reader.nextMember(key));
            ASSERT_EQ(key, member.key());
            key.size() % 2 == 0 ? writer.key(Json::Writer::Key(key)) : writer.key(key);
            copy(member.value(), reader, writer);
        }
        ASSERT_FALSE(reader.nextMember(key));
        writer.endObject();
    } else if (tree.is_array()) {
        reader.beginArray();
        writer.beginArray();
        for (const ordered_json& element : tree) {
            ASSERT_TRUE(reader.nextElement());
            copy(element, reader, writer);
        }
        ASSERT_FALSE(reader.nextElement());
        writer.endArray();
    } else if (tree.is_string()) {
        std::string text;
        reader.read(text);
        ASSERT_EQ(text, tree.get<std::string>());
        writer.write(text);
    } else if (tree.is_boolean()) {
        bool boolean = false;
        reader.read(boolean);
        ASSERT_EQ(boolean, tree.get<bool>());
        writer.write(boolean);
    } else if (tree.is_number()) {
        double number = 0;
        reader.read(number);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(number), std::bit_cast<std::uint64_t>(tree.get<double>()));
        tree.is_number_unsigned()  ? writer.write(tree.get<unsigned int>())
        : tree.is_number_integer() ? writer.write(tree.get<int>())
                                   : writer.write(number);
    } else {
        ASSERT_TRUE(reader.takeNull());
        writer.write(nullptr);
    }
}

/// Whether `read` reads the whole text without an error.
bool reads(const std::string& text, const std::function<void(Json::Reader&)>& read) {
    try {
        Json::Reader reader(text);
        read(reader);
        reader.end();
        return true;
    } catch (const Json::JsonError& error) {
        EXPECT_STREQ(error.what(), "the JSON text is not as expected");
        return false;
    }
}

/// The number as it is written, or "-" when the type cannot hold it.
template <typename T>
std::string readAs(const std::string& text) {
    T number{};
    return reads(text, [&](Json::Reader& reader) { reader.read(number); }) ? std::to_string(number) : "-";
}

TEST(JsonReader, AcceptsIntegersInTheRangeOfTheType) {
    const std::pair<std::string, std::string> cases[] = {{"2147483647", "2147483647 2147483647"},
                                                         {"2147483648", "- 2147483648"},
                                                         {"4294967295", "- 4294967295"},
                                                         {"4294967296", "- -"},
                                                         {"-2147483648", "-2147483648 -"},
                                                         {"-2147483649", "- -"},
                                                         {"-0", "0 -"},
                                                         {"18446744073709551617", "- -"}, // 1 modulo 2^64
                                                         {"1.0", "- -"},
                                                         {"1e0", "- -"},
                                                         {"true", "- -"},
                                                         {"\"1\"", "- -"}};
    for (const auto& [text, numbers] : cases)
        EXPECT_EQ(readAs<int>(text) + " " + readAs<unsigned int>(text), numbers) << text;
}

TEST(JsonReader, RefusesOtherKindsAndMissingValues) {
    bool boolean = false;
    std::string string;
    const std::function<void(Json::Reader&)> misuses[] = {
        [](Json::Reader& reader) { reader.beginArray(); },
        [](Json::Reader& reader) { reader.nextElement(); },
        [](Json::Reader& reader) { reader.takeNull(); },
        [&](Json::Reader& reader) { reader.read(boolean); },
        [&](Json::Reader& reader) { reader.read(string); },
        [](Json::Reader& reader) {
            std::string_view key;
            reader.beginObject();
            while (reader.nextMember(key)) { // without reading its value
            }
        }};
    for (const auto& misuse : misuses)
        EXPECT_FALSE(reads(R"({"a":1,"b":2})", misuse) || reads("1", misuse));
    EXPECT_EQ(readAs<double>("true"), "-");
    EXPECT_TRUE(reads(" null ", [](Json::Reader& reader) { EXPECT_TRUE(reader.takeNull()); }));
}

/// Changes a few places of a text, most of which are then malformed.
std::string damaged(std::string text, std::mt19937& random) {
    static const std::vector<std::string> pieces = Utils::StringFunctions::split(
        "\"~\\~\\u00e9~\\ud83d\\ude00~\\ud800~\xC3\xA9~\xFF~\xED\xA0\x80~\xF0\x9F\x98\x80~0~-~-0~1e400~"
        "1e-400~2E5~01~.5~123456789012345678901~-9223372036854775809~[~]~{~}~,~:~null~true~ ~\n~\t~\x01~"
        "\"a\":1,~\xEF\xBB\xBF~\0"s,
        "~");
    for (std::size_t i = 1 + random() % 2; i > 0; --i)
        text.replace(random() % text.size(), random() % 3,
                     random() % 4 == 0 ? "" : pieces[random() % pieces.size()]);
    return text;
}

TEST(JsonReader, AcceptsNothingThatTheParserRejectsOrReadsDifferently) {
    const std::string texts[] = {
        R"([1,-2,{"key":[0.5,1e5,-0.0,-0,"\u00e9\n\"",null,true,false,{}],"b":[]}])",
        R"({"maximum":   9007199254740993,"list":[[["x"]],12345678901234567890,-123.456e-7,0.30000000000000004]})"};
    std::mt19937 random(1);
    std::size_t accepted = 0;
    for (int round = 0; round < 4000; ++round) {
        const std::string text = damaged(texts[round % 2], random);
        const bool isTaken = reads(text, [](Json::Reader& reader) { reader.skip(); });
        std::string parsed;
        try {
            parsed = Json::fromString(text).toString(-1);
        } catch (const Json::JsonError&) {
            ASSERT_FALSE(isTaken || ordered_json::accept(text.c_str())) << text;
            continue;
        }
        ++accepted;
        const ordered_json tree = ordered_json::parse(text);
        ASSERT_EQ(parsed, tree.dump()) << text;
        const bool hasDuplicates = text.find("\"a\":1,") != text.rfind("\"a\":1,");
        if (isTaken && !hasDuplicates) {
            Json::Writer writer(-1);
            ASSERT_TRUE(reads(text, [&](Json::Reader& reader) { copy(tree, reader, writer); })) << text;
        }
    }
    EXPECT_GT(accepted, 400U);
}

ordered_json makeTree(std::mt19937& random, int depth) {
    const char* const pieces[] = {
        "\"", "\\", "\n", "\x01", "\x1F", "\x7F", "/", "\xC3\xA9", "\xF0\x9F\x98\x80", "plain text"};
    std::string text;
    while (random() % 4 != 0)
        text += pieces[random() % std::size(pieces)];
    ordered_json array = ordered_json::array(), object = ordered_json::object();
    for (; depth > 0 && random() % 4 != 0; array.push_back(object.back()))
        object[text + std::to_string(random())] = makeTree(random, depth - 1);
    const auto number = static_cast<unsigned int>(random());
    const double fraction = static_cast<int>(number % 200000) / 1e5;
    const double large = -std::round(std::ldexp(number, static_cast<int>(random() % 40) - 20));
    const ordered_json values[] = {
        array, object, text, nullptr, number % 2 == 0, number, static_cast<int>(number), fraction, large};
    return values[random() % std::size(values)];
}

TEST(JsonWriter, GivesTheTextOfTheJsonLibrary) {
#ifndef __cpp_lib_to_chars // then the reader refuses some numbers, which are read as JSON values instead
    GTEST_SKIP() << "the standard library does not convert floating-point numbers";
#endif
    std::mt19937 random(1);
    const ordered_json numbers = ordered_json::parse(
        "[0.0,-0.0,0.01207,1e15,-1e15,999999999999999.0,1e22,5e-324,1.5e-5,1e-300,1.7976931348623157e308]");
    const auto expectSameText = [](const ordered_json& tree, int indent) {
        Json::Writer writer(indent);
        const std::string text = tree.dump(indent);
        ASSERT_TRUE(reads(text, [&](Json::Reader& reader) { copy(tree, reader, writer); })) << text;
        ASSERT_EQ(writer.takeText(), text);
    };
    // More than the writer gathers before it appends to the text, with pieces that are longer by themselves.
    ordered_json large = ordered_json::parse(std::string(9, '[') + std::string(9, ']'));
    for (std::size_t length = 4090; length < 4100; ++length)
        large.push_back({{std::string(length, 'x'), std::string(length, 'y') + "\xC3\xA9\n"}});
    for (int round = 0; round < 2000; ++round) {
        const ordered_json tree = round == 0 ? numbers : makeTree(random, 3);
        expectSameText(tree, round % 6 - 1);
        if (round < 500)
            large.push_back(tree);
    }
    for (const int indent : {-1, 4, 512})
        expectSameText(large, indent);
}

} // namespace
} // namespace norel::Desktop::DataFormat

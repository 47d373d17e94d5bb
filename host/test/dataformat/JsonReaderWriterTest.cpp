#include "norel/Desktop/DataFormat/Json.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <random>

namespace norel::Desktop::DataFormat {
namespace {

using nlohmann::ordered_json;
using testing::ThrowsMessage;

/// Reads the text value by value and compares with the tree.
void expectReads(Json::Reader& reader, const ordered_json& expected) {
    if (expected.is_object()) {
        reader.beginObject();
        std::string_view key;
        for (const auto& member : expected.items()) {
            ASSERT_TRUE(reader.nextMember(key));
            ASSERT_EQ(key, member.key());
            expectReads(reader, member.value());
        }
        ASSERT_FALSE(reader.nextMember(key));
    } else if (expected.is_array()) {
        reader.beginArray();
        for (const ordered_json& element : expected) {
            ASSERT_TRUE(reader.nextElement());
            expectReads(reader, element);
        }
        ASSERT_FALSE(reader.nextElement());
    } else if (expected.is_string()) {
        std::string text;
        reader.read(text);
        ASSERT_EQ(text, expected.get<std::string>());
    } else if (expected.is_boolean()) {
        bool boolean = false;
        reader.read(boolean);
        ASSERT_EQ(boolean, expected.get<bool>());
    } else if (expected.is_number()) {
        double number = 0;
        reader.read(number);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(number), std::bit_cast<std::uint64_t>(expected.get<double>()));
    } else {
        ASSERT_TRUE(reader.takeNull());
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

template <typename T>
std::optional<T> readAs(const std::string& text) {
    T value{};
    return reads(text, [&](Json::Reader& reader) { reader.read(value); }) ? std::optional<T>(value)
                                                                          : std::nullopt;
}

TEST(JsonReader, AcceptsIntegersInTheRangeOfTheType) {
    const struct {
        const char* text;
        std::optional<int> number;
        std::optional<unsigned int> unsignedNumber;
    } cases[] = {{"2147483647", 2147483647, 2147483647U},
                 {"2147483648", std::nullopt, 2147483648U},
                 {"4294967295", std::nullopt, 4294967295U},
                 {"4294967296", std::nullopt, std::nullopt},
                 {"-2147483648", -2147483647 - 1, std::nullopt},
                 {"-2147483649", std::nullopt, std::nullopt},
                 {"-0", 0, std::nullopt},
                 {"18446744073709551617", std::nullopt, std::nullopt}, // 1 modulo 2^64
                 {"1.0", std::nullopt, std::nullopt},
                 {"1e0", std::nullopt, std::nullopt},
                 {"true", std::nullopt, std::nullopt}};
    for (const auto& [text, number, unsignedNumber] : cases) {
        EXPECT_EQ(readAs<int>(text), number) << text;
        EXPECT_EQ(readAs<unsigned int>(text), unsignedNumber) << text;
    }
}

TEST(JsonReader, RefusesOtherKindsAndMissingValues) {
    EXPECT_FALSE(readAs<double>("true") || readAs<bool>("1") || readAs<std::string>("1") ||
                 readAs<int>("\"1\""));
    const std::function<void(Json::Reader&)> misuses[] = {
        [](Json::Reader& reader) { reader.beginArray(); }, [](Json::Reader& reader) { reader.nextElement(); },
        [](Json::Reader& reader) { reader.takeNull(); },
        [](Json::Reader& reader) {
            std::string_view key;
            reader.beginObject();
            while (reader.nextMember(key)) { // without reading its value
            }
        }};
    for (const auto& misuse : misuses)
        EXPECT_FALSE(reads(R"({"a":1,"b":2})", misuse));
    EXPECT_TRUE(reads(" null ", [](Json::Reader& reader) { EXPECT_TRUE(reader.takeNull()); }));
}

/// Changes a few places of a text, most of which are then malformed.
std::string damaged(std::string text, std::mt19937& random) {
    static const std::string pieces[] = {"\"",
                                         "\\",
                                         "\\u00e9",
                                         "\\ud83d\\ude00",
                                         "\\ud800",
                                         "\xC3\xA9",
                                         "\xFF",
                                         "\xED\xA0\x80",
                                         "\xF0\x9F\x98\x80",
                                         "0",
                                         "-",
                                         "-0",
                                         "1e400",
                                         "1e-400",
                                         "2E5",
                                         "01",
                                         ".5",
                                         "123456789012345678901",
                                         "-9223372036854775809",
                                         "[",
                                         "]",
                                         "{",
                                         "}",
                                         ",",
                                         ":",
                                         "null",
                                         "true",
                                         " ",
                                         "\n",
                                         "\t",
                                         "\x01",
                                         "\"a\":1,",
                                         "\xEF\xBB\xBF",
                                         std::string(1, '\0')};
    const auto below = [&](std::size_t limit) { return random() % limit; };
    for (std::size_t i = 1 + below(2); i > 0; --i) {
        const std::size_t position = below(text.size());
        text.replace(position, below(3), below(4) == 0 ? "" : pieces[below(std::size(pieces))]);
    }
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
            ASSERT_TRUE(reads(text, [&](Json::Reader& reader) { expectReads(reader, tree); })) << text;
        }
    }
    EXPECT_GT(accepted, 400U);
}

void write(Json::Writer& writer, const ordered_json& value) {
    if (value.is_object()) {
        writer.beginObject();
        for (const auto& member : value.items()) {
            if (member.key().size() % 2 == 0)
                writer.key(Json::Writer::Key(member.key()));
            else
                writer.key(member.key());
            write(writer, member.value());
        }
        writer.endObject();
    } else if (value.is_array()) {
        writer.beginArray();
        for (const ordered_json& element : value)
            write(writer, element);
        writer.endArray();
    } else if (value.is_string()) {
        writer.write(value.get_ref<const std::string&>());
    } else if (value.is_boolean()) {
        writer.write(value.get<bool>());
    } else if (value.is_number_unsigned()) {
        writer.write(value.get<unsigned int>());
    } else if (value.is_number_integer()) {
        writer.write(value.get<int>());
    } else if (value.is_number()) {
        writer.write(value.get<double>());
    } else {
        writer.write(nullptr);
    }
}

ordered_json makeTree(std::mt19937& random, int depth) {
    const std::string pieces[] = {
        "\"", "\\", "\n", "\x01", "\x1F", "\x7F", "/", "\xC3\xA9", "\xF0\x9F\x98\x80", "plain text"};
    std::string text;
    while (random() % 4 != 0)
        text += pieces[random() % std::size(pieces)];
    ordered_json tree;
    switch (random() % (depth == 0 ? 6 : 8)) {
    case 0:
        return random() % 2 == 0 ? ordered_json() : ordered_json(random() % 2 == 0);
    case 1:
        return static_cast<int>(random());
    case 2:
        return static_cast<unsigned int>(random());
    case 3:
        return text;
    case 4:
        return std::round(std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 40) - 20)) *
               -1;
    case 5:
        return static_cast<double>(static_cast<int>(random() % 200000)) / 1e5;
    case 6:
        for (tree = ordered_json::array(); random() % 4 != 0;)
            tree.push_back(makeTree(random, depth - 1));
        return tree;
    default:
        for (tree = ordered_json::object(); random() % 4 != 0;)
            tree[text + std::to_string(random())] = makeTree(random, depth - 1);
        return tree;
    }
}

TEST(JsonWriter, GivesTheTextOfTheJsonLibrary) {
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        const ordered_json tree = makeTree(random, 4);
        const int indent = round % 6 - 1;
        Json::Writer writer(indent);
        write(writer, tree);
        ASSERT_EQ(writer.takeText(), tree.dump(indent));
    }
    for (const double number : {0.0, -0.0, 0.01207, 1e15, -1e15, 999999999999999.0, 1e22, 5e-324, 1.5e-5}) {
        Json::Writer writer(4);
        writer.write(number);
        EXPECT_EQ(writer.takeText(), ordered_json(number).dump());
    }
}

TEST(JsonWriter, RefusesWhatCannotBeReadBack) {
    Json::Writer writer(-1);
    EXPECT_THAT([&] { writer.write(-HUGE_VAL); },
                ThrowsMessage<Json::JsonError>("JSON cannot hold a number that is not finite"));
    EXPECT_THAT([&] { writer.write("a\xFF"); },
                ThrowsMessage<Json::JsonError>(
                    "[json.exception.type_error.316] invalid UTF-8 byte at index 1: 0xFF"));
    EXPECT_THAT([] { Json::Writer::Key("\xC3"); },
                ThrowsMessage<Json::JsonError>(
                    "[json.exception.type_error.316] incomplete UTF-8 string; last byte: 0xC3"));
    Json::Writer deep(512);
    EXPECT_THAT(
        [&] {
            for (;;)
                deep.beginArray();
        },
        ThrowsMessage<Json::JsonError>("arrays and objects nest deeper than 100 levels"));
}

} // namespace
} // namespace norel::Desktop::DataFormat

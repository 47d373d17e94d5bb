#include "norel/Desktop/DataFormat/Json.h"

#include <gmock/gmock.h>
#include <limits>
#include <set>
#include <tuple>
#include <utility>

namespace norel::Desktop::DataFormat {
namespace {

using testing::ThrowsMessage;
using Strings = std::vector<std::string>;
template <typename Number>
using Members = std::map<std::string, Number>;

TEST(JsonValue, IsConstructedFromEachKind) {
    const std::pair<Json, const char*> cases[] = {
        {Json(), "null"},
        {Json(-2147483647 - 1), "-2147483648"},
        {Json(4294967295U), "4294967295"},
        {Json(1.0), "1.0"},
        {Json(true), "true"},
        {Json(std::string("a\0\"\n\xC3\xA9", 6)), "\"a\\u0000\\\"\\n\xC3\xA9\""},
        {Json(Members<int>{{"b", -1}, {"a", 2}}), R"({"a":2,"b":-1})"},
        {Json(Members<unsigned int>{{"a", 4294967295U}}), R"({"a":4294967295})"},
        {Json(Members<double>{}), "{}"},
        {Json(Strings{"b", "a"}), R"(["b","a"])"},
        {Json(std::vector<Json>{}), "[]"},
        {Json(std::vector<Json>{1, Json(Strings{"x"}), Json(), Json(2.5)}), R"([1,["x"],null,2.5])"}};
    for (const auto& [json, text] : cases)
        EXPECT_EQ(json.toString(-1), text);
}

TEST(JsonValue, ReadsIntegersFromAnyNumber) {
    const std::tuple<std::string, int, unsigned int> cases[] = {{"-1", -1, 4294967295U},
                                                                {"4294967295", -1, 4294967295U},
                                                                {"-4294967298", -2, 4294967294U},
                                                                {"18446744073709551615", -1, 4294967295U},
                                                                {"18446744073709551616", 0, 0U},
                                                                {"-2.999", -2, 4294967294U},
                                                                {"3000000000.0", -1294967296, 3000000000U},
                                                                {"-4294967297.5", -1, 4294967295U},
                                                                {"1e300", 0, 0U},
                                                                {"true", 1, 1U}};
    for (const auto& [text, number, unsignedNumber] : cases) {
        const Json map = Json::fromString("{\"n\":" + text + "}");
        EXPECT_EQ(map.getValue("n").as<int>(), number) << text;
        EXPECT_EQ(map.getValue("n").as<unsigned int>(), unsignedNumber) << text;
        EXPECT_EQ(map.as<Members<int>>(), (Members<int>{{"n", number}})) << text;
        EXPECT_EQ(map.as<Members<unsigned int>>(), (Members<unsigned int>{{"n", unsignedNumber}})) << text;
    }
    EXPECT_EQ(Json(std::numeric_limits<double>::infinity()).as<int>(), 0);
    EXPECT_EQ(Json(std::numeric_limits<double>::quiet_NaN()).as<int>(), 0);
}

TEST(JsonValue, ReadsTheOtherTypesFromTheirOwnKind) {
    EXPECT_EQ(Json::fromString("-18446744073709551616").as<double>(), -18446744073709551616.0);
    EXPECT_TRUE(Json(true).as<bool>());
    EXPECT_EQ(Json("a").as<std::string>(), "a");
    EXPECT_EQ(Json::fromString(R"({"b":1,"a":0.5})").as<Members<double>>(),
              (Members<double>{{"a", 0.5}, {"b", 1.0}}));
    EXPECT_EQ(Json::fromString(R"(["b","a"])").as<Strings>(), (Strings{"b", "a"}));
}

/// Reads every kind of value as T: the kinds not `accepted` are refused, naming the required kind.
template <typename T>
void expectRefusals(const std::string& required, const std::set<std::string>& accepted) {
    const std::pair<std::string, const char*> values[] = {
        {"null", "null"}, {"object", "{}"},   {"array", "[]"},    {"string", "\"1\""},
        {"number", "1"},  {"number", "-1.5"}, {"boolean", "true"}};
    for (const auto& [kind, text] : values) {
        const Json json = Json::fromString(text);
        if (accepted.count(kind) != 0)
            EXPECT_NO_THROW(json.as<T>());
        else
            EXPECT_THAT([&json = json] { json.as<T>(); },
                        ThrowsMessage<Json::IncompatibleTypeError>(
                            "[json.exception.type_error.302] type must be " + required + ", but is " + kind));
    }
}

TEST(JsonValue, RefusesOtherKindsWithTheLibrarysMessages) {
    expectRefusals<int>("number", {"number", "boolean"});
    expectRefusals<double>("number", {"number"});
    expectRefusals<bool>("boolean", {"boolean"});
    expectRefusals<std::string>("string", {"string"});
    expectRefusals<Members<int>>("object", {"object"});
    expectRefusals<Strings>("array", {"array"});
}

TEST(JsonValue, ErrorsNameTheProblem) {
    const Json object = Json::fromString(R"({"a":1,"s":"x","t":true,"list":["x",2]})");
    Json changeable = object;
    Json number(1);
    struct {
        std::function<void()> operation;
        const char* message;
    } const typeErrors[] = {
        {[&] { Json::fromString(R"({"a":1,"b":"2"})").as<Members<int>>(); },
         "302] type must be number, but is string"},
        {[&] { Json::fromString(R"({"a":null})").as<Members<unsigned int>>(); },
         "302] type must be number, but is null"},
        {[&] { Json::fromString(R"({"a":true})").as<Members<double>>(); },
         "302] type must be number, but is boolean"},
        {[&] { Json::fromString(R"(["a",2])").as<Strings>(); }, "302] type must be string, but is number"},
        {[&] { object.get("a"); }, "302] type must be string, but is number"},
        {[&] { object.getAsString(); }, "302] type must be string, but is object"},
        {[&] { object.begin(); }, "302] type must be array, but is object"},
        {[&] { std::as_const(number).getValue("a"); }, "304] cannot use at() with number"},
        {[&] { number.getValue("a"); }, "304] cannot use at() with number"},
        {[&] { Json(Strings{"a"}).get("a"); }, "304] cannot use at() with array"},
        {[&] { number.set("a", 1); }, "305] cannot use operator[] with a string argument with number"},
        {[&] { changeable.getValue("s").set("a", 1); },
         "305] cannot use operator[] with a string argument with string"},
    };
    for (const auto& [operation, message] : typeErrors)
        EXPECT_THAT(operation, ThrowsMessage<Json::IncompatibleTypeError>("[json.exception.type_error." +
                                                                          std::string(message)));

    const std::string notFound = "[json.exception.out_of_range.403] key 'b' not found";
    EXPECT_THAT([&] { object.getValue("b"); }, ThrowsMessage<Json::JsonError>(notFound));
    EXPECT_THAT([&] { changeable.getValue("b"); }, ThrowsMessage<Json::JsonError>(notFound));
    EXPECT_THAT([&] { object.get("b"); }, ThrowsMessage<Json::JsonError>(notFound));
    EXPECT_THAT([&] { object.getValue(std::string(460, 'x') + "\xC3\xA9\xC3\xA9"); }, // cut between the two
                ThrowsMessage<Json::JsonError>("[json.exception.out_of_range.403] key '" +
                                               std::string(460, 'x') + "..."));
    EXPECT_EQ(changeable.toString(-1), object.toString(-1));
}

TEST(JsonValue, ReportsItsContents) {
    const Json json = Json::fromString(R"({"":null,"a":{"b":1}})");
    EXPECT_TRUE(json.contains(""));
    EXPECT_TRUE(json.getValue("").isNull());
    EXPECT_FALSE(json.isNull());
    for (const Json& other : {json, Json(), Json("b"), Json(Strings{"b"}), Json(1)})
        EXPECT_FALSE(other.contains("b"));
}

TEST(JsonValue, KeepsMembersInTheOrderTheyWereSet) {
    Json json;
    std::string expected;
    for (char key = 'z'; key >= 'a'; --key) { // enough to reallocate several times
        json.set(std::string(1, key), Json(Strings{"x"}));
        expected += std::string(",\"") + key + "\":" + (key == 'k' ? "0" : R"(["x"])");
    }
    const Json replacement(0);
    json.set("k", replacement);
    EXPECT_EQ(json.toString(-1), "{" + expected.substr(1) + "}");
}

} // namespace
} // namespace norel::Desktop::DataFormat

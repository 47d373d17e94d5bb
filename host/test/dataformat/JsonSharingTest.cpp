#include "norel/Desktop/DataFormat/Json.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <optional>
#include <thread>
#include <utility>

namespace norel::Desktop::DataFormat {
namespace {

using testing::ThrowsMessage;

std::string textOf(const Json& json) { return json.toString(-1); }

/// The ways in which a Json can hold its value. They must be indistinguishable.
constexpr const char* FORMS[] = {"Own", "Shared", "PartOfShared", "Viewed", "OnceViewed", "View"};

/// The value in that form; `kept` holds what must stay alive.
Json make(const std::string& form, Json value, std::vector<Json>& kept) {
    Json outer;
    outer.set("inner", value);
    if (form == "PartOfShared")
        return std::as_const(outer).getValue("inner");
    if (form == "View")
        return kept.emplace_back(std::move(outer)).getValue("inner");
    if (form == "Viewed")
        kept.push_back(value.getValue("a"));
    if (form == "OnceViewed")
        value.getValue("a");
    if (form == "Shared")
        kept.push_back(value);
    return value;
}

struct JsonSharing : testing::TestWithParam<const char*> {
    const std::string text = R"({"a":{"b":{"c":1}},"list":[1,{"x":2},"three"]})";
    std::vector<Json> kept;
    Json json = make(GetParam(), Json::fromString(text), kept);
};

INSTANTIATE_TEST_SUITE_P(, JsonSharing, testing::ValuesIn(FORMS),
                         [](const auto& form) { return form.param; });

TEST_P(JsonSharing, WritesThroughViewsOfViews) {
    Json a = json.getValue("a");
    Json b = a.getValue("b");
    b.set("d", 2);
    a.set("e", 3);
    json.getValue("a").getValue("b").set("f", 4);
    Json moved = std::move(b);
    moved.set("g", Json());
    moved.getValue("g").set("h", 5);
    EXPECT_EQ(textOf(json),
              R"({"a":{"b":{"c":1,"d":2,"f":4,"g":{"h":5}},"e":3},"list":[1,{"x":2},"three"]})");
    EXPECT_EQ(textOf(moved), R"({"c":1,"d":2,"f":4,"g":{"h":5}})");
}

TEST_P(JsonSharing, ChangesDoNotAffectCopies) {
    Json copy = json;
    const Json value = std::as_const(json).getValue("a");
    Json a = json.getValue("a");
    Json copyWhileViewed = json;
    Json copyOfView = a;
    const Json valueWhileViewed = std::as_const(json).getValue("a");
    const Json valueOfView = std::as_const(a).getValue("b");
    const std::vector<Json> elements{json, a};
    const Json array(elements), movedArray(std::vector<Json>{json, a});
    a.set("b", 0);
    json.set("list", 0);
    EXPECT_EQ(textOf(json), R"({"a":{"b":0},"list":0})");
    EXPECT_EQ(textOf(copy), text);
    EXPECT_EQ(textOf(copyWhileViewed), text);
    for (const Json& snapshot : {value, copyOfView, valueWhileViewed})
        EXPECT_EQ(textOf(snapshot), R"({"b":{"c":1}})");
    EXPECT_EQ(textOf(valueOfView), R"({"c":1})");
    for (const Json& snapshot : {array, movedArray})
        EXPECT_EQ(textOf(snapshot), "[" + text + R"(,{"b":{"c":1}}])");

    copy.getValue("a").set("b", 1);
    copyWhileViewed.set("a", 2);
    copyOfView.set("b", 3);
    EXPECT_EQ(textOf(json), R"({"a":{"b":0},"list":0})");
    EXPECT_EQ(textOf(value), R"({"b":{"c":1}})");
}

TEST_P(JsonSharing, TextOfATemporaryLeavesOtherValuesAlone) {
    std::vector<std::string> before, after;
    std::transform(kept.begin(), kept.end(), std::back_inserter(before), textOf);
    EXPECT_EQ(Json(json).toString(-1), text);
    EXPECT_EQ(std::move(json).toString(-1), text);
    std::transform(kept.begin(), kept.end(), std::back_inserter(after), textOf);
    EXPECT_EQ(after, before);
}

TEST_P(JsonSharing, ViewsMayOutliveTheirOwner) {
    std::optional<Json> owner(std::move(json));
    std::optional<Json> a = owner->getValue("a");
    Json b = a->getValue("b");
    owner.reset();
    kept.clear();
    a->set("e", 3);
    a.reset();
    b.set("d", 2);
    EXPECT_EQ(textOf(b), R"({"c":1,"d":2})");
}

TEST_P(JsonSharing, MayBeSetIntoItself) {
    Json a = json.getValue("a");
    json.set("list", 0);
    a.set("b", json);
    json.set("list", a);
    EXPECT_EQ(textOf(json),
              R"({"a":{"b":{"a":{"b":{"c":1}},"list":0}},"list":{"b":{"a":{"b":{"c":1}},"list":0}}})");

    json.set("a", 0);
    json.set("list", 1);
    json.set("self", json);
    EXPECT_EQ(textOf(json), R"({"a":0,"list":1,"self":{"a":0,"list":1}})");
    a = Json(); // without its view nothing else may hold the value
    json.set("self", std::move(json));
    EXPECT_EQ(textOf(json), R"({"a":0,"list":1,"self":{"a":0,"list":1,"self":{"a":0,"list":1}}})");
}

TEST_P(JsonSharing, ViewOfARemovedMemberThrows) {
    Json a = json.getValue("a");
    Json b = a.getValue("b");
    json.set("a", 7);
    const std::function<void()> uses[] = {
        [&] { textOf(b); },        [&] { b.set("d", 2); },
        [&] { b.getValue("c"); },  [&] { std::as_const(b).getValue("c"); },
        [&] { b.contains("c"); },  [&] { b.isNull(); },
        [&] { b.as<int>(); },      [&] { b.get("c"); },
        [&] { b.getAsString(); },  [&] { b.begin(); },
        [&] { b.end(); },          [&] { const Json copy(b); },
        [&] { json.set("b", b); },
    };
    for (const auto& use : uses)
        EXPECT_THAT(use, ThrowsMessage<Json::JsonError>(
                             "[json.exception.type_error.304] cannot use at() with number"));
    EXPECT_EQ(a.as<int>(), 7);
    EXPECT_EQ(textOf(json), R"({"a":7,"list":[1,{"x":2},"three"]})");

    json.set("a", Json(std::map<std::string, int>{{"b", 8}}));
    EXPECT_EQ(b.as<int>(), 8);
}

TEST_P(JsonSharing, IterationSurvivesChanges) {
    const Json value = std::as_const(json).getValue("list");
    const Json view = json.getValue("list");
    for (const Json* list : {&value, &view}) {
        std::string elements;
        for (Json element : *list) {
            if (element.contains("x")) {
                json.set("list", 0);
                element.set("y", 3);
            }
            elements += textOf(element);
        }
        EXPECT_EQ(elements, R"(1{"x":2,"y":3}"three")");
        json.set("list", value);
    }
    EXPECT_EQ(textOf(json), text);

    JsonConstIterator position = view.begin();
    const JsonConstIterator first = position;
    json.set("list", Json(std::vector<std::string>(5, "another")));
    for (int i = 0; i < 3; ++i)
        ++position;
    EXPECT_TRUE(position != view.end()); // which is that of the new array
    EXPECT_THAT([&] { *position; }, ThrowsMessage<Json::JsonError>(
                                        "[json.exception.out_of_range.401] array index 3 is out of range"));
    position = first;
    EXPECT_EQ((*position).as<int>(), 1);
}

TEST_P(JsonSharing, ViewsFollowMovesButNotAssignments) {
    Json a = json.getValue("a");
    Json& same = json;
    json = same;
    json = std::move(same);
    Json moved(std::move(json));
    a.set("b", 0);
    EXPECT_EQ(textOf(moved), R"({"a":{"b":0},"list":[1,{"x":2},"three"]})");
    EXPECT_TRUE(json.isNull());
    json.set("new", 1);
    EXPECT_EQ(textOf(json), R"({"new":1})");

    moved = json;
    a.set("b", 1); // of the former value
    EXPECT_EQ(textOf(moved), R"({"new":1})");
    EXPECT_EQ(textOf(a), R"({"b":1})");
}

TEST(JsonThreads, ReadOneValueAndChangeItsCopies) {
    Json parsed = Json::fromString(R"({"profiles":[{"name":"x","n":1},{"name":"y","n":2}]})");
    parsed.getValue("profiles"); // a view that no longer exists
    const Json& constant = parsed;
    std::vector<Json> copies(4, parsed);
    std::vector<std::string> results(copies.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < copies.size(); ++i)
        threads.emplace_back([&constant, &json = copies[i], &result = results[i]] {
            for (int round = 0; round < 200; ++round) {
                result.clear();
                for (const Json profile : constant.getValue("profiles"))
                    result += textOf(profile) + (constant.contains("name") ? "!" : "");
                result += textOf(constant.getValue("profiles"));
                Json copy = json;
                copy.getValue("profiles");
                for (Json profile : std::as_const(json).getValue("profiles")) {
                    profile.set("n", round);
                    result += profile.get("name") + textOf(profile.getValue("n"));
                }
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& result : results)
        EXPECT_EQ(result,
                  R"({"name":"x","n":1}{"name":"y","n":2}[{"name":"x","n":1},{"name":"y","n":2}]x199y199)");
}

} // namespace
} // namespace norel::Desktop::DataFormat

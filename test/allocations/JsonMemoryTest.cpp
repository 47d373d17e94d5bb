#include "norel/Desktop/DataFormat/Json.h"

#include "MemoryShortage.h"

#include <utility>

namespace norel::Desktop::DataFormat {
namespace {

using Test::heap;
using Test::MemoryShortage;
using Test::runWithEachAllocationFailing;
using Numbers = std::map<std::string, double>;
const std::string LONG = "a text that is too long to be held without memory";
const std::string TEXT =
    R"({"a":{"b":{"c":[1,[2.5e0,{"d":")" + LONG + R"("}],{}]}},")" + LONG + R"(":[[["x"]]],"a2":-7})";

/// The result of the operation, or the message of its JsonError.
std::string resultOf(const std::function<std::string()>& operation) {
    try {
        return operation();
    } catch (const Json::JsonError& error) {
        return error.what();
    }
}

TEST(JsonMemory, ShortageIsAnExceptionAndNeverAnotherResult) {
    const Json shared = Json::fromString(TEXT);
    Json deep = shared;
    for (int level = 0; level < 300; ++level)
        deep = Json(std::vector<Json>{deep});
    const std::string malformed = TEXT.substr(0, TEXT.size() - 9) + "!";
    const std::string duplicates = "\xEF\xBB\xBF{\"a\":[[1]],\"b\":" + TEXT + ",\"a\":[[2]]}";
    const std::function<std::string()> operations[] = {
        [] { return Json::fromString(TEXT).toString(-1); },
        [&] { return Json::fromString(duplicates).toString(4); },
        [&] { return Json::fromString(malformed).toString(4); },
        [&] {
            Json changed = shared;
            changed.set("new", shared);
            changed.set("a", Json(std::vector<Json>{shared, changed}));
            return std::as_const(changed).getValue("new").toString(4);
        },
        [&] {
            Json changed = shared;
            Json view = changed.getValue("a").getValue("b");
            view.set("c", shared);
            view.set("e", view);
            changed.set("a", changed);
            changed = Json(changed);
            return changed.toString(-1);
        },
        [&] {
            Json changed = deep;
            changed = Json(std::vector<Json>{changed, shared});
            return changed.toString(4);
        },
        [&] {
            std::string result =
                std::to_string(Json(std::map<std::string, int>{{LONG, 1}}).as<Numbers>().size());
            for (Json element : shared.getValue("a").getValue("b").getValue("c"))
                result += Json(std::vector<std::string>{LONG, element.toString(-1)}).toString(4);
            return result + Json(result).getValue("a").toString(4);
        }};
    for (const auto& operation : operations) {
        const std::string expected = resultOf(operation);
        runWithEachAllocationFailing([&](MemoryShortage& shortage) {
            std::string result = expected;
            shortage.allows([&] { result = resultOf(operation); });
            EXPECT_EQ(result, expected);
        });
    }
}

TEST(JsonMemory, OfCopiesIsShared) {
    Json json = Json::fromString("[" + TEXT + "]");
    json = *json.begin();
    json.getValue("a"); // a view that no longer exists
    const std::size_t before = heap.used;
    const Json copy = json;
    const Json member = copy.getValue("a");
    const Json array = member.getValue("b").getValue("c");
    const JsonConstIterator position = array.begin();
    EXPECT_EQ(heap.used, before);
}

TEST(JsonMemory, OfParsingIsBoundedByTheText) {
    const std::pair<std::string, std::string> units[] = {
        {"[]", ","},          {"{}", ","},      {"0", ","},        {"\"\"", ","},
        {"[0]", ","},         {"[[0]]", ","},   {"{\"\":0}", ","}, {"{\"\":[]}", ","},
        {"{\"\":\"\"}", ","}, {"[\"a\"]", ","}, {"-1", ","},       {"123456789012345678901", ","},
        {"[],,", ""},         {"[", ","}};
    constexpr std::size_t size = 50000;
    for (const std::string& prefix : {std::string("["), std::string("\xEF\xBB\xBF[")})
        for (const auto& [unit, comma] : units) {
            std::string text = prefix + unit;
            while (text.size() < size)
                text += comma + unit;
            text += "]";
            const std::size_t before = heap.used;
            heap.peak = before;
            try {
                Json::fromString(text);
            } catch (const Json::JsonError&) {
            }
            EXPECT_LE(heap.peak - before, 24 * text.size() + 65536) << unit;
            EXPECT_EQ(heap.used, before);
        }
}

} // namespace
} // namespace norel::Desktop::DataFormat

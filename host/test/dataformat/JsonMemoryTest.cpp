#include "norel/Desktop/DataFormat/Json.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <new>
#include <utility>

namespace {

/// Controls and counts every allocation of this program.
struct Heap {
    static constexpr std::size_t UNLIMITED = std::numeric_limits<std::size_t>::max();

    std::size_t allocationsUntilFailure = UNLIMITED;
    bool isShortageLasting = false;
    std::size_t used = 0; // with the overhead of common allocators
    std::size_t peak = 0;
};
Heap heap;

constexpr std::size_t HEADER = alignof(std::max_align_t); // holds the counted size of the block

} // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
void* operator new(std::size_t size) {
    if (heap.allocationsUntilFailure == 0) {
        if (!heap.isShortageLasting)
            heap.allocationsUntilFailure = Heap::UNLIMITED;
        throw std::bad_alloc();
    }
    if (heap.allocationsUntilFailure != Heap::UNLIMITED)
        --heap.allocationsUntilFailure;
    void* block = std::malloc(HEADER + size);
    if (!block)
        throw std::bad_alloc();
    auto& counted = *static_cast<std::size_t*>(block);
    counted = std::max<std::size_t>(32, (size + 8 + 15) / 16 * 16);
    heap.used += counted;
    heap.peak = std::max(heap.peak, heap.used);
    return static_cast<std::byte*>(block) + HEADER;
}

void operator delete(void* pointer) noexcept {
    if (!pointer)
        return;
    void* block = static_cast<std::byte*>(pointer) - HEADER;
    heap.used -= *static_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* pointer, std::size_t /*size*/) noexcept { operator delete(pointer); }
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)

namespace norel::Desktop::DataFormat {
namespace {

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
        for (const bool isLasting : {false, true}) {
            bool isDone = false;
            for (std::size_t allocations = 0; !isDone; ++allocations) {
                std::string result = expected;
                heap.isShortageLasting = isLasting;
                heap.allocationsUntilFailure = allocations;
                try {
                    result = resultOf(operation);
                    isDone = isLasting || heap.allocationsUntilFailure != Heap::UNLIMITED;
                } catch (const std::bad_alloc&) {
                }
                heap.allocationsUntilFailure = Heap::UNLIMITED;
                EXPECT_EQ(result, expected);
            }
        }
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

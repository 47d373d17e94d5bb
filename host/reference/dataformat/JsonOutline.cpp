#include "JsonOutline.h"

#include "JsonCharacters.h"
#include "JsonTree.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <algorithm>
#include <array>

namespace norel::Desktop::DataFormat {

namespace {

// What the parts of a tree take from the heap, as common allocators round it.
constexpr std::size_t BLOCK_OVERHEAD = 16;
constexpr std::size_t CONTAINER = sizeof(Node::object_t) + 8;
constexpr std::size_t STRING = sizeof(std::string) + BLOCK_OVERHEAD;
constexpr std::size_t LONGEST_INNER_STRING = 15; // which std::string holds without the heap

/// Allowed in addition, so that small texts are never refused.
constexpr std::size_t FIXED_MEMORY = std::size_t{60} * 1024;

/// The closing quote of a string, or the end of the text.
const char* skipString(const char* position, const char* end) {
    for (;;) {
        position = skipPlain(position, end);
        if (position == end || *position == '"')
            return position;
        if (*position == '\\' && end - position > 1)
            ++position;
        ++position;
    }
}

/// An array or object that is open, or the text as a whole.
struct Level {
    std::size_t index; // of its count
    std::size_t itemSize;
};

} // namespace

JsonOutline::JsonOutline(const std::string& text) {
    const std::size_t maximumMemory = MEMORY_PER_BYTE * text.size() + FIXED_MEMORY;
    std::size_t memory = 0;
    std::array<Level, Json::MAXIMUM_DEPTH + 1> levels{};
    Level* innermost = levels.data();
    itemCounts.push_back(0);
    const auto addItem = [&] {
        ++itemCounts[innermost->index];
        memory += innermost->itemSize;
    };
    const auto addFirstItem = [&] {
        if (itemCounts[innermost->index] == 0) {
            addItem();
            memory += BLOCK_OVERHEAD;
        }
    };
    const char* const end = text.data() + text.size();
    for (const char* position = text.data(); position != end && memory <= maximumMemory; ++position) {
        switch (*position) {
        case ' ':
            position = skipSpaces(position, end) - 1;
            break;
        case '\n':
        case '\r':
        case '\t':
            break;
        case ',':
            addItem();
            break;
        case ':': // the string was a key, which is part of its member
            memory -= std::min(memory, STRING);
            break;
        case '[':
        case '{':
            if (innermost == &levels.back()) {
                tooDeepAt = static_cast<std::size_t>(position - text.data());
                return;
            }
            addFirstItem();
            *++innermost = {itemCounts.size(), *position == '[' ? sizeof(Node::array_t::value_type)
                                                                : sizeof(Node::object_t::value_type)};
            itemCounts.push_back(0);
            memory += CONTAINER + sizeof(std::uint32_t);
            break;
        case ']':
        case '}':
            innermost -= innermost == levels.data() ? 0 : 1;
            break;
        case '"': {
            addFirstItem();
            const char* const first = position + 1;
            position = skipString(first, end);
            if (position == end)
                return;
            const auto length = static_cast<std::size_t>(position - first);
            memory += STRING + (length > LONGEST_INNER_STRING ? length + BLOCK_OVERHEAD : 0);
            break;
        }
        default:
            addFirstItem();
        }
    }
    takesTooMuchMemory = memory > maximumMemory;
    itemCounts.shrink_to_fit();
}

} // namespace norel::Desktop::DataFormat

#include "JsonOutline.h"

#include "JsonCharacters.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <array>

namespace norel::Desktop::DataFormat {

namespace {

/// The end of the text of a string, which is its closing quote.
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

} // namespace

JsonOutline::JsonOutline(const std::string& text) {
    std::array<std::size_t, Json::MAXIMUM_DEPTH + 1> open{}; // the indices of their counts
    std::size_t depth = 0;
    itemCounts.push_back(0); // of the text itself
    std::uint32_t* innermost = itemCounts.data();
    const char* const end = text.data() + text.size();
    for (const char* position = text.data(); position != end; ++position) {
        switch (*position) {
        case ' ':
            position = skipSpaces(position, end) - 1;
            break;
        case '\n':
        case '\r':
        case '\t':
        case ':':
            break;
        case ',':
            ++*innermost;
            break;
        case '[':
        case '{':
            if (depth == Json::MAXIMUM_DEPTH) {
                tooDeepAt = static_cast<std::size_t>(position - text.data());
                return;
            }
            *innermost += *innermost == 0 ? 1 : 0;
            open[++depth] = itemCounts.size();
            innermost = &itemCounts.emplace_back(0);
            break;
        case ']':
        case '}':
            depth -= depth == 0 ? 0 : 1;
            innermost = &itemCounts[open[depth]];
            break;
        case '"':
            position = skipString(position + 1, end);
            if (position == end)
                return;
            [[fallthrough]];
        default:
            *innermost += *innermost == 0 ? 1 : 0;
        }
    }
    itemCounts.shrink_to_fit();
}

} // namespace norel::Desktop::DataFormat

#include "Text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct Character {
    char32_t code = 0;
    std::size_t length = 0; ///< in bytes; 0 for a byte that begins no UTF-8 character
};

struct Range {
    char32_t first;
    char32_t last;
};

template <std::size_t N>
bool isIn(const std::array<Range, N>& ranges, char32_t code) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const Range& range) { return code >= range.first && code <= range.last; });
}

/// The character that begins the text, which is not empty.
Character decode(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if (first < 0x80)
        return {first, 1};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length)
        return {};
    char32_t code = first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U)
            return {};
        code = (code << 6U) | (byte(i) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    if (code < smallest[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return {};
    return {code, length};
}

/// Controls of both sets, and characters that are not seen but change how others are.
bool steersTerminal(char32_t code) {
    constexpr std::array<Range, 9> ranges{{{0x00, 0x1F},
                                           {0x7F, 0x9F},
                                           {0x61C, 0x61C},
                                           {0x200B, 0x200B},
                                           {0x200E, 0x200F},
                                           {0x2028, 0x202E},
                                           {0x2060, 0x206F},
                                           {0xFEFF, 0xFEFF},
                                           {0xFFF9, 0xFFFB}}};
    return isIn(ranges, code);
}

std::size_t widthOf(char32_t code) {
    constexpr std::array<Range, 5> combining{
        {{0x300, 0x36F}, {0x200C, 0x200D}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}, {0xE0100, 0xE01EF}}};
    constexpr std::array<Range, 9> wide{{{0x1100, 0x115F},
                                         {0x2E80, 0xA4CF},
                                         {0xAC00, 0xD7A3},
                                         {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE6F},
                                         {0xFF00, 0xFF60},
                                         {0xFFE0, 0xFFE6},
                                         {0x1F300, 0x1FAFF},
                                         {0x20000, 0x3FFFD}}};
    return isIn(combining, code) ? 0 : isIn(wide, code) ? 2 : 1;
}

std::string format(const char* pattern, unsigned number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), pattern, number);
    return text.data();
}

std::string escaped(char32_t code) {
    if (code == '\n')
        return "\\n";
    if (code == '\r')
        return "\\r";
    if (code == '\t')
        return "\\t";
    return format("\\u%04x", static_cast<unsigned>(code));
}

std::string withoutControls(std::string_view text, bool keepsLines) {
    std::string result;
    while (!text.empty()) {
        const Character character = decode(text);
        const std::size_t length = std::max<std::size_t>(character.length, 1);
        if (character.length == 0)
            result += format("\\x%02x", static_cast<unsigned char>(text[0]));
        else if (steersTerminal(character.code) && !(keepsLines && character.code == '\n'))
            result += escaped(character.code);
        else
            result += text.substr(0, length);
        text.remove_prefix(length);
    }
    return result;
}

} // namespace

std::string printable(std::string_view text) { return withoutControls(text, false); }

std::string printableJson(std::string_view text) { return withoutControls(text, true); }

std::string inQuotes(std::string_view text) { return '"' + printable(text) + '"'; }

std::size_t getDisplayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = decode(text);
        width += widthOf(character.code);
        text.remove_prefix(std::max<std::size_t>(character.length, 1));
    }
    return width;
}

std::string shortened(const std::string& text, std::size_t width) {
    if (getDisplayWidth(text) <= width)
        return text;
    std::string result;
    std::size_t taken = 1; // for the sign that something was cut off
    for (std::string_view rest = text;;) {
        const Character character = decode(rest);
        taken += widthOf(character.code);
        if (taken > width)
            return result + "…";
        result += rest.substr(0, character.length);
        rest.remove_prefix(character.length);
    }
}

std::string counted(std::size_t number, const std::string& noun) {
    return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

} // namespace norel::Desktop::PayloadProfiles

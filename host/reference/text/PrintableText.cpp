#include "PrintableText.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace norel::Desktop::Text {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

template <std::size_t N>
bool isIn(const std::array<Range, N>& ranges, char32_t code) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const Range& range) { return code >= range.first && code <= range.last; });
}

/// Controls, line separators, annotations, and what Unicode calls default-ignorable (fillers, marks of
/// direction, tags ...) except joiners and variation selectors.
bool mustBeEscaped(char32_t code) {
    constexpr std::array<Range, 20> ranges{
        {{0x00, 0x1F},     {0x7F, 0x9F},       {0xAD, 0xAD},       {0x34F, 0x34F},     {0x61C, 0x61C},
         {0x115F, 0x1160}, {0x17B4, 0x17B5},   {0x180B, 0x180F},   {0x200B, 0x200B},   {0x200E, 0x200F},
         {0x2028, 0x202E}, {0x2060, 0x206F},   {0x3164, 0x3164},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0},
         {0xFFF0, 0xFFFB}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0000, 0xE00FF}, {0xE01F0, 0xE0FFF}}};
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
    const auto number = static_cast<unsigned>(code);
    if (number <= 0xFFFF)
        return format("\\u%04x", number);
    return format("\\u%04x", 0xD7C0 + (number >> 10U)) + format("\\u%04x", 0xDC00 + (number & 0x3FFU));
}

std::string withoutControls(std::string_view text, std::size_t maximumBytes, bool keepsLines) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const Character character = decodeCharacter(text.substr(position));
        const std::string_view bytes = text.substr(position, std::max<std::size_t>(character.length, 1));
        position += bytes.size();
        if (position > maximumBytes)
            return result + "...";
        if (character.length == 0)
            result += format("\\x%02x", static_cast<unsigned char>(bytes[0]));
        else if (mustBeEscaped(character.code) && !(keepsLines && character.code == '\n'))
            result += escaped(character.code);
        else
            result += bytes;
    }
    return result;
}

} // namespace

Character decodeCharacter(std::string_view text) {
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

std::string printableText(std::string_view text) { return withoutControls(text, text.size(), false); }

std::string printableText(std::string_view text, std::size_t maximumBytes) {
    return withoutControls(text, maximumBytes, false);
}

std::string printableJson(std::string_view text) { return withoutControls(text, text.size(), true); }

std::size_t getDisplayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = decodeCharacter(text);
        width += widthOf(character.code);
        text.remove_prefix(std::max<std::size_t>(character.length, 1));
    }
    return width;
}

std::string shortened(const std::string& text, std::size_t width) {
    if (getDisplayWidth(text) <= width)
        return text;
    std::size_t columns = 1; // of the ellipsis
    std::size_t end = 0;
    while (true) {
        const Character character = decodeCharacter(std::string_view(text).substr(end));
        columns += widthOf(character.code);
        if (columns > width)
            return text.substr(0, end) + "…";
        end += std::max<std::size_t>(character.length, 1);
    }
}

} // namespace norel::Desktop::Text

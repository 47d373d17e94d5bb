#include "PrintableText.h"

#include <array>
#include <cstdio>

namespace norel::Desktop::Networking {
namespace {

/// The length of the UTF-8 character that begins the text; 0 when none does.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : static_cast<unsigned char>(0);
    };
    const unsigned first = byte(0);
    const unsigned second = byte(1);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if ((first >= 0x80 && first < 0xC2) || first > 0xF4)
        return 0;
    if ((first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90)) // longer than needed
        return 0;
    if ((first == 0xED && second > 0x9F) || (first == 0xF4 && second > 0x8F)) // a surrogate, beyond U+10FFFF
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0U) != 0x80U)
            return 0;
    return length;
}

bool isControl(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    return first < 0x20 || first == 0x7F ||
           (first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0);
}

std::string escaped(char byte) {
    if (byte == '\n')
        return "\\n";
    if (byte == '\r')
        return "\\r";
    if (byte == '\t')
        return "\\t";
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "\\x%02x",
                  static_cast<unsigned>(static_cast<unsigned char>(byte)));
    return text.data();
}

} // namespace

std::string printableText(std::string_view text, std::size_t maximumBytes) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length = characterLength(text.substr(position));
        const std::string_view character = text.substr(position, length == 0 ? 1 : length);
        position += character.size();
        if (position > maximumBytes)
            return result + "...";
        if (length != 0 && !isControl(character))
            result += character;
        else
            for (const char byte : character)
                result += escaped(byte);
    }
    return result;
}

} // namespace norel::Desktop::Networking

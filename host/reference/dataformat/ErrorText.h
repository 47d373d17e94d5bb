#pragma once

#include <string>

namespace norel::Desktop::DataFormat {

/// The JSON library's error text, cut when a hostile document made it long.
inline std::string boundedErrorText(std::string text) {
    constexpr std::size_t maximumLength = 500;
    if (text.size() > maximumLength) {
        std::size_t end = maximumLength;
        while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) // inside a UTF-8 character
            --end;
        text.resize(end);
        text += "...";
    }
    return text;
}

} // namespace norel::Desktop::DataFormat

#include "Rules.h"

namespace norel::Desktop::Domain::Payloads {

std::string shortened(const std::string& text) {
    constexpr std::size_t maximumLength = 500;
    if (text.size() <= maximumLength)
        return text;
    const auto isInsideCharacter = [&](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
    };
    std::size_t length = maximumLength;
    while (length > maximumLength - 3 && isInsideCharacter(length))
        --length;
    return text.substr(0, length) + "...";
}

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include <charconv>
#include <string>

namespace norel::Desktop::Utils::ConvertToGenericString {

template <typename Number>
std::string convertToGenericString(Number number) {
    char text[32];
    return std::string(text, std::to_chars(text, std::end(text), number).ptr);
}

} // namespace norel::Desktop::Utils::ConvertToGenericString

#pragma once

#include <string>
#include <string_view>

/// Texts from UTF-16 and back; what is invalid becomes U+FFFD.
namespace norel::Desktop::Text {

std::wstring toUtf16(std::string_view utf8);
std::string fromUtf16(std::wstring_view utf16);

} // namespace norel::Desktop::Text

#include "text/windows/Utf16.h"

#include <windows.h>

namespace norel::Desktop::Text {

std::wstring toUtf16(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring utf16(utf8.size(), L'\0');
    const int length = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, utf16.data(), size);
    utf16.resize(static_cast<std::size_t>(length));
    return utf16;
}

std::string fromUtf16(std::wstring_view utf16) {
    const int size = static_cast<int>(utf16.size());
    std::string utf8(utf16.size() * 3, '\0'); // the most that a unit takes
    const int length = ::WideCharToMultiByte(CP_UTF8, 0, utf16.data(), size, utf8.data(),
                                             static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(length));
    return utf8;
}

} // namespace norel::Desktop::Text

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Paths from UTF-8 and back. Elsewhere than on POSIX systems std::filesystem::path takes and gives a
/// std::string in another encoding.
namespace norel::Desktop::Text {

inline std::filesystem::path makePath(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string toUtf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace norel::Desktop::Text

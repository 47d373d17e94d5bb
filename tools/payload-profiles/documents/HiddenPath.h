#pragma once

#include <filesystem>
#include <string_view>

namespace norel::Desktop::PayloadProfiles {

/// A hidden file beside `path`, for the use of the application. Its name is that of `path`, cut to leave room
/// within the 255 bytes of a name, and `ending`.
inline std::filesystem::path makeHiddenPath(std::filesystem::path path, std::string_view ending) {
    constexpr std::size_t longestPart = 200;
    std::filesystem::path name = ".";
    name += path.filename().native().substr(0, longestPart);
    name += ending;
    return path.replace_filename(name);
}

} // namespace norel::Desktop::PayloadProfiles

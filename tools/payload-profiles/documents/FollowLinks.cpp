#include "documents/FollowLinks.h"

#include "text/Utf8Path.h"

#include <system_error>

namespace norel::Desktop::PayloadProfiles {

std::filesystem::path followLinks(const std::filesystem::path& path) {
    constexpr int maximumLinks = 40; // as many as POSIX systems follow
    std::filesystem::path target = path;
    std::error_code isNoLink;
    for (int links = 0; links <= maximumLinks; ++links) {
        const std::filesystem::path next = std::filesystem::read_symlink(target, isNoLink);
        if (isNoLink)
            return target;
        target = target.parent_path() / next;
    }
    throw std::system_error(std::make_error_code(std::errc::too_many_symbolic_link_levels),
                            "cannot follow \"" + Text::toUtf8(path) + '"');
}

} // namespace norel::Desktop::PayloadProfiles

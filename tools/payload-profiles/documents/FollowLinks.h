#pragma once

#include <filesystem>

namespace norel::Desktop::PayloadProfiles {

/// Where a chain of symbolic links ends, whether or not anything exists there. Throws std::system_error for
/// circular links.
std::filesystem::path followLinks(const std::filesystem::path& path);

} // namespace norel::Desktop::PayloadProfiles

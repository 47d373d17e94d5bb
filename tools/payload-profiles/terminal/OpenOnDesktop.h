#pragma once

#include <filesystem>

namespace norel::Desktop::PayloadProfiles {

/// Opens a file in the program that the user's desktop has for its kind, such as the browser. Returns once
/// the desktop has taken the request. Throws std::system_error when there is no desktop to ask, and
/// std::runtime_error when it refuses.
void openOnDesktop(const std::filesystem::path& file);

} // namespace norel::Desktop::PayloadProfiles

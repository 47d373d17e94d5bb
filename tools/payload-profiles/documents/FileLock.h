#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <stdexcept>

namespace norel::Desktop::PayloadProfiles {

/// An advisory lock on a file, which need not exist. It excludes other processes that use this class, by
/// whatever symbolic links they reach the file, and does not prevent any other access. It stays valid when
/// the file is replaced, and is released when the process ends.
///
/// While it is held, the folder contains a second file, ".NAME.norel-lock". A killed process may leave that
/// file behind; it locks nothing then, and the next holder removes it. In a folder that the caller may not
/// write nothing is locked: no file can be replaced there.
class FileLock {
public:
    /// Another process held the lock for the whole wait.
    struct TimedOut : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// Tries at least once. Throws TimedOut, or std::system_error when the system cannot lock.
    FileLock(const std::filesystem::path& file, std::chrono::seconds wait);

    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    std::filesystem::path lockFile;
    std::intptr_t handle; ///< the system's, of the open lock file
};

} // namespace norel::Desktop::PayloadProfiles

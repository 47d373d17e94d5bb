#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

/// The system's part of FileLock: a file that one process holds at a time.
namespace norel::Desktop::PayloadProfiles::LockFile {

using Handle = std::intptr_t; ///< the system's, of the open lock file

constexpr Handle NOT_NEEDED = -1; ///< the folder cannot be written, and so no file replaced there

/// Tries once; empty when another process holds it. Throws std::system_error when the system cannot lock.
std::optional<Handle> tryToLock(const std::filesystem::path& lockFile);

/// Releases the lock and removes the file.
void unlock(const std::filesystem::path& lockFile, Handle handle);

/// The process that holds the lock; empty when it is not known.
std::optional<unsigned long> findHolder(const std::filesystem::path& lockFile);

/// Throws the error.
[[noreturn]] void fail(const std::filesystem::path& lockFile, const std::error_code& error);

} // namespace norel::Desktop::PayloadProfiles::LockFile

#include "documents/LockFile.h"

#include "text/windows/SystemError.h"

#include <array>
#include <charconv>
#include <string>
#include <system_error>
#include <windows.h>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

constexpr DWORD SHARED = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Whether the caller may create files in the folder, so that it is the file itself that must not be opened:
/// another user's, or one that is just being removed.
bool isInWritableFolder(const fs::path& path) {
    const fs::path parent = path.parent_path();
    const HANDLE folder = ::CreateFileW(parent.empty() ? L"." : parent.c_str(), FILE_ADD_FILE, SHARED,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (folder == INVALID_HANDLE_VALUE)
        return false;
    ::CloseHandle(folder);
    return true;
}

} // namespace

// The holder does not let others open the file for writing. The system removes it when the holder closes it
// or ends.
std::optional<LockFile::Handle> LockFile::tryToLock(const fs::path& lockFile) {
    const HANDLE file =
        ::CreateFileW(lockFile.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                      FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        const std::string process = std::to_string(::GetCurrentProcessId());
        DWORD written = 0;
        ::WriteFile(file, process.data(), static_cast<DWORD>(process.size()), &written, nullptr);
        return reinterpret_cast<Handle>(file);
    }
    const DWORD error = ::GetLastError();
    if (error == ERROR_WRITE_PROTECT || (error == ERROR_ACCESS_DENIED && !isInWritableFolder(lockFile)))
        return NOT_NEEDED;
    if (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION)
        return std::nullopt;
    fail(lockFile, Text::makeErrorCode(error));
}

void LockFile::unlock(const fs::path&, Handle handle) { ::CloseHandle(reinterpret_cast<HANDLE>(handle)); }

std::optional<unsigned long> LockFile::findHolder(const fs::path& lockFile) {
    const HANDLE file =
        ::CreateFileW(lockFile.c_str(), GENERIC_READ, SHARED, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return std::nullopt;
    std::array<char, 16> text{};
    DWORD size = 0;
    ::ReadFile(file, text.data(), static_cast<DWORD>(text.size()), &size, nullptr);
    ::CloseHandle(file);
    unsigned long process = 0;
    const bool isKnown = std::from_chars(text.data(), text.data() + size, process).ec == std::errc();
    return isKnown ? std::optional(process) : std::nullopt;
}

} // namespace norel::Desktop::PayloadProfiles

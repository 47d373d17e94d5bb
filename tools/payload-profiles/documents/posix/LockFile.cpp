#include "documents/LockFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

constexpr int COMMON_FLAGS = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;

[[noreturn]] void failWithErrno(const fs::path& lockFile) {
    LockFile::fail(lockFile, {errno, std::generic_category()});
}

struct flock makeRequest() {
    struct flock request {};
    request.l_type = F_WRLCK;
    request.l_whence = SEEK_SET; // with the length 0: the whole file
    return request;
}

bool isSameFile(int descriptor, const fs::path& path) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(descriptor, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

/// Whether the folder may be searched, so that it is the file itself that must not be opened.
bool isInSearchableFolder(const fs::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 || errno == ENOENT;
}

bool isUnwritable(int error) { return error == EACCES || error == EPERM || error == EROFS; }

/// Creates the lock file; empty when another process has just created it.
std::optional<LockFile::Handle> create(const fs::path& lockFile) {
    const int descriptor = ::open(lockFile.c_str(), COMMON_FLAGS | O_CREAT | O_EXCL, 0600);
    if (descriptor >= 0) {
        ::fchmod(descriptor, 0666); // for other users of the folder, whatever the umask; it stays empty
        return descriptor;
    }
    if (errno == EEXIST)
        return std::nullopt;
    if (isUnwritable(errno))
        return LockFile::NOT_NEEDED;
    failWithErrno(lockFile);
}

} // namespace

// The lock belongs to the file itself, not to its name: a holder removes the name when it is
// done, so that what was opened a moment ago may no longer be the lock file.
std::optional<LockFile::Handle> LockFile::tryToLock(const fs::path& lockFile) {
    int descriptor = ::open(lockFile.c_str(), COMMON_FLAGS);
    if (descriptor < 0 && errno == ENOENT) {
        const std::optional<Handle> created = create(lockFile);
        if (!created || *created == NOT_NEEDED)
            return created;
        descriptor = static_cast<int>(*created);
    }
    if (descriptor < 0 && errno == EACCES && isInSearchableFolder(lockFile))
        return std::nullopt; // of another user, who may be about to open it to all
    if (descriptor < 0)
        failWithErrno(lockFile);
    struct flock request = makeRequest();
    const bool isLocked = ::fcntl(descriptor, F_SETLK, &request) == 0;
    const int error = isLocked || errno == EACCES || errno == EINTR ? EAGAIN : errno;
    if (isLocked && isSameFile(descriptor, lockFile))
        return descriptor;
    ::close(descriptor);
    if (error == EAGAIN)
        return std::nullopt;
    errno = error;
    failWithErrno(lockFile);
}

void LockFile::unlock(const fs::path& lockFile, Handle handle) {
    ::unlink(lockFile.c_str()); // before the lock ends: afterwards the name may be another holder's
    ::close(static_cast<int>(handle));
}

std::optional<unsigned long> LockFile::findHolder(const fs::path& lockFile) {
    struct flock request = makeRequest();
    const int descriptor = ::open(lockFile.c_str(), COMMON_FLAGS);
    const bool isKnown = descriptor >= 0 && ::fcntl(descriptor, F_GETLK, &request) == 0 &&
                         request.l_type != F_UNLCK && request.l_pid > 0;
    if (descriptor >= 0)
        ::close(descriptor);
    return isKnown ? std::optional(static_cast<unsigned long>(request.l_pid)) : std::nullopt;
}

} // namespace norel::Desktop::PayloadProfiles

#include "documents/FileLock.h"

#include "documents/FollowLinks.h"

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int NOT_NEEDED = -1; // in place of a descriptor
constexpr int COMMON_FLAGS = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;

fs::path makeLockPath(const fs::path& file) {
    // Cut to leave room within the 255 bytes of a name. Files whose names begin alike then share a lock,
    // which does no harm.
    constexpr std::size_t longestPart = 200;
    const fs::path target = followLinks(file);
    return target.parent_path() / ('.' + target.filename().string().substr(0, longestPart) + ".norel-lock");
}

[[noreturn]] void fail(const fs::path& lockFile) {
    throw std::system_error(errno, std::generic_category(),
                            "cannot use its lock file \"" + lockFile.string() + '"');
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
std::optional<int> create(const fs::path& lockFile) {
    const int descriptor = ::open(lockFile.c_str(), COMMON_FLAGS | O_CREAT | O_EXCL, 0600);
    if (descriptor >= 0) {
        ::fchmod(descriptor, 0666); // for other users of the folder, whatever the umask; it stays empty
        return descriptor;
    }
    if (errno == EEXIST)
        return std::nullopt;
    if (isUnwritable(errno))
        return NOT_NEEDED;
    fail(lockFile);
}

/// Tries once. The lock belongs to the file itself, not to its name: a holder removes the name when it is
/// done, so that what was opened a moment ago may no longer be the lock file.
std::optional<int> tryToLock(const fs::path& lockFile) {
    int descriptor = ::open(lockFile.c_str(), COMMON_FLAGS);
    if (descriptor < 0 && errno == ENOENT) {
        const std::optional<int> created = create(lockFile);
        if (!created || *created == NOT_NEEDED)
            return created;
        descriptor = *created;
    }
    if (descriptor < 0 && errno == EACCES && isInSearchableFolder(lockFile))
        return std::nullopt; // of another user, who may be about to open it to all
    if (descriptor < 0)
        fail(lockFile);
    struct flock request = makeRequest();
    const bool isLocked = ::fcntl(descriptor, F_SETLK, &request) == 0;
    const int error = isLocked || errno == EACCES || errno == EINTR ? EAGAIN : errno;
    if (isLocked && isSameFile(descriptor, lockFile))
        return descriptor;
    ::close(descriptor);
    if (error == EAGAIN)
        return std::nullopt;
    errno = error;
    fail(lockFile);
}

std::string describeHolder(const fs::path& lockFile) {
    struct flock request = makeRequest();
    const int descriptor = ::open(lockFile.c_str(), COMMON_FLAGS);
    const bool isKnown = descriptor >= 0 && ::fcntl(descriptor, F_GETLK, &request) == 0 &&
                         request.l_type != F_UNLCK && request.l_pid > 0;
    if (descriptor >= 0)
        ::close(descriptor);
    return isKnown ? "process " + std::to_string(request.l_pid)
                   : "another process (its lock file is \"" + lockFile.string() + "\")";
}

} // namespace

FileLock::FileLock(const fs::path& file, std::chrono::seconds wait)
    : lockFile(makeLockPath(file)), handle(NOT_NEEDED) {
    const Clock::time_point start = Clock::now();
    std::optional<int> descriptor;
    while (!(descriptor = tryToLock(lockFile))) {
        const auto waited = Clock::now() - start;
        if (waited >= wait)
            throw TimedOut("still locked by " + describeHolder(lockFile));
        // The longer a process has waited, the more often it tries, so that it gets the lock sooner.
        std::this_thread::sleep_for(std::chrono::microseconds(20000) /
                                    (1 + waited / std::chrono::seconds(1)));
    }
    handle = *descriptor;
}

FileLock::~FileLock() {
    if (handle == NOT_NEEDED)
        return;
    ::unlink(lockFile.c_str()); // before the lock ends: afterwards the name may be another holder's
    ::close(static_cast<int>(handle));
}

} // namespace norel::Desktop::PayloadProfiles

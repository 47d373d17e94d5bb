#include "documents/FileLock.h"

#include "documents/FollowLinks.h"
#include "documents/HiddenPath.h"
#include "documents/LockFile.h"
#include "text/Utf8Path.h"

#include <optional>
#include <string>
#include <system_error>
#include <thread>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Files whose long names begin alike share a lock, which does no harm.
fs::path makeLockPath(const fs::path& file) { return makeHiddenPath(followLinks(file), ".norel-lock"); }

std::string describeHolder(const fs::path& lockFile) {
    const auto holder = LockFile::findHolder(lockFile);
    return holder ? "process " + std::to_string(*holder)
                  : "another process (its lock file is \"" + Text::toUtf8(lockFile) + "\")";
}

} // namespace

void LockFile::fail(const fs::path& lockFile, const std::error_code& error) {
    throw std::system_error(error, "cannot use its lock file \"" + Text::toUtf8(lockFile) + '"');
}

FileLock::FileLock(const fs::path& file, std::chrono::seconds wait)
    : lockFile(makeLockPath(file)), handle(LockFile::NOT_NEEDED) {
    const Clock::time_point start = Clock::now();
    std::optional<LockFile::Handle> locked;
    while (!(locked = LockFile::tryToLock(lockFile))) {
        const auto waited = Clock::now() - start;
        if (waited >= wait)
            throw TimedOut("still locked by " + describeHolder(lockFile));
        // The longer a process has waited, the more often it tries, so that it gets the lock sooner.
        std::this_thread::sleep_for(std::chrono::microseconds(20000) /
                                    (1 + waited / std::chrono::seconds(1)));
    }
    handle = *locked;
}

FileLock::~FileLock() {
    if (handle != LockFile::NOT_NEEDED)
        LockFile::unlock(lockFile, handle);
}

} // namespace norel::Desktop::PayloadProfiles

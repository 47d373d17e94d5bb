#include "TemporaryFile.h"

#include "Wording.h"

#include <fcntl.h>
#include <sys/file.h>
#include <vector>

namespace norel::Desktop::Storage {

TemporaryFile::TemporaryFile(const Operation& currentOperation, const Entry& finalName, mode_t mode)
    : operation(currentOperation),
      system(currentOperation.getSystem()),
      target(finalName),
      name(finalName.getName()),
      file(createFile(mode)) {}

TemporaryFile::~TemporaryFile() {
    if (hasTemporaryName)
        removeTemporaryName();
}

void TemporaryFile::removeTemporaryName() {
    const auto unlink = [this] { return system.unlinkat(target.getFolder(), name.get().c_str()); };
    hasTemporaryName = Operation::attempt(unlink) != 0;
}

int TemporaryFile::createFile(mode_t mode) const {
    const int result = operation.run(
        [&] {
            return system.openat(target.getFolder(), name.get().c_str(), O_WRONLY | O_CREAT | O_EXCL, mode);
        },
        Wording::NO_FILE_IN_FOLDER);
    // Some file systems have no locks; the file is then protected only by its age.
    Operation::attempt([&] { return system.flock(result, LOCK_EX | LOCK_NB); });
    return result;
}

void TemporaryFile::removeAbandonedFiles() const {
    struct stat ownStatus {};
    std::vector<std::string> names; // whatever fails from here on, the next write tries again
    if (system.fstat(file, ownStatus) != 0 || system.listNames(target.getFolder(), names) != 0)
        return;
    for (const std::string& found : names)
        if (name.isSibling(found))
            removeAbandonedFile(found, ownStatus);
}

void TemporaryFile::removeAbandonedFile(const std::string& abandoned, const struct stat& ownStatus) const {
    const int folder = target.getFolder();
    struct stat status {};
    // Both times are from the clock of the file system.
    if (system.fstatat(folder, abandoned.c_str(), status) != 0 || !S_ISREG(status.st_mode) ||
        std::chrono::seconds(ownStatus.st_mtime - status.st_mtime) < TemporaryName::ABANDONED_AFTER)
        return;
    // For writing: some file systems do not lock files that are open only for reading.
    const Descriptor opened(system.openat(folder, abandoned.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK));
    if (opened >= 0 && system.flock(opened, LOCK_EX | LOCK_NB) == 0)
        system.unlinkat(folder, abandoned.c_str());
}

void TemporaryFile::write(std::string_view text) const {
    while (!text.empty()) {
        const auto written = operation.run([&] { return system.write(file, text.data(), text.size()); });
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

void TemporaryFile::sync() const {
    operation.run([this] { return system.fsync(file); });
}

void TemporaryFile::replaceTarget() {
    operation.run(
        [this] { return system.renameat(target.getFolder(), name.get().c_str(), target.getName()); });
    hasTemporaryName = false;
}

void TemporaryFile::becomeTarget() {
    const int folder = target.getFolder();
    const auto rename = [&] {
        return system.renameatExclusively(folder, name.get().c_str(), target.getName());
    };
    if (Operation::attempt(rename) == 0) {
        hasTemporaryName = false;
        return;
    }
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP && errno != EOPNOTSUPP)
        operation.fail(errno);
    // Not all systems and file systems support such a rename.
    operation.run([&] { return system.linkat(folder, name.get().c_str(), target.getName()); });
    removeTemporaryName();
}

} // namespace norel::Desktop::Storage

#include "TemporaryFile.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/file.h>
#include <vector>

namespace norel::Desktop::Storage {
namespace {

constexpr std::string_view SUFFIX = ".tmp";
constexpr std::size_t NUMBER_LENGTH = 16;
constexpr time_t ABANDONED_AFTER = 3600; // seconds; a text is written in far less

std::string toHexadecimal(std::uint64_t number) {
    std::array<char, NUMBER_LENGTH + 1> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number));
    return text.data();
}

/// FNV-1a: the same in every process, of whatever version.
std::uint64_t hash(std::string_view text) {
    std::uint64_t result = 14695981039346656037U;
    for (const char character : text)
        result = (result ^ static_cast<unsigned char>(character)) * 1099511628211U;
    return result;
}

std::uint64_t makeRandomNumber() {
    std::random_device random;
    return (std::uint64_t{random()} << 32U) | random();
}

bool isTemporaryName(const std::string& name, const std::string& prefix) {
    return name.size() == prefix.size() + NUMBER_LENGTH + SUFFIX.size() && name.starts_with(prefix) &&
           name.ends_with(SUFFIX) &&
           name.find_first_not_of("0123456789abcdef", prefix.size()) == prefix.size() + NUMBER_LENGTH;
}

} // namespace

TemporaryFile::TemporaryFile(const Operation& currentOperation, const Entry& finalName, mode_t mode)
    : operation(currentOperation),
      system(currentOperation.getSystem()),
      target(finalName),
      prefix(".norel-" + toHexadecimal(hash(finalName.getName())) + '-'),
      name(prefix + toHexadecimal(makeRandomNumber()) + std::string(SUFFIX)),
      file(createFile(mode)) {}

TemporaryFile::~TemporaryFile() {
    if (hasTemporaryName)
        removeTemporaryName();
}

void TemporaryFile::removeTemporaryName() {
    const auto unlink = [this] { return system.unlinkat(target.getFolder(), name.c_str()); };
    hasTemporaryName = Operation::attempt(unlink) != 0;
}

int TemporaryFile::createFile(mode_t mode) const {
    const int result = operation.run(
        [&] { return system.openat(target.getFolder(), name.c_str(), O_WRONLY | O_CREAT | O_EXCL, mode); },
        ": cannot create a file in its folder");
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
        if (found != name && isTemporaryName(found, prefix))
            removeAbandonedFile(found, ownStatus);
}

void TemporaryFile::removeAbandonedFile(const std::string& abandoned, const struct stat& ownStatus) const {
    const int folder = target.getFolder();
    struct stat status {};
    // Both times are from the clock of the file system.
    if (system.fstatat(folder, abandoned.c_str(), status) != 0 || !S_ISREG(status.st_mode) ||
        ownStatus.st_mtime - status.st_mtime < ABANDONED_AFTER)
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
    operation.run([this] { return system.renameat(target.getFolder(), name.c_str(), target.getName()); });
    hasTemporaryName = false;
}

void TemporaryFile::becomeTarget() {
    const int folder = target.getFolder();
    const auto rename = [&] { return system.renameatExclusively(folder, name.c_str(), target.getName()); };
    if (Operation::attempt(rename) == 0) {
        hasTemporaryName = false;
        return;
    }
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP && errno != EOPNOTSUPP)
        operation.fail(errno);
    // Not all systems and file systems support such a rename.
    operation.run([&] { return system.linkat(folder, name.c_str(), target.getName()); });
    removeTemporaryName();
}

} // namespace norel::Desktop::Storage

#include "norel/Desktop/Storage/DurableTextFileStorage.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <random>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;

/// An operation on a path, as its failures name it.
class Operation {
public:
    Operation(const std::string& verb, const fs::path& path)
        : description("cannot " + verb + " \"" + path.string() + "\"") {}

    [[noreturn]] void fail(int error, const std::string& detail = {}) const {
        throw std::system_error(error, std::generic_category(), description + detail);
    }

    /// The result of a system call, which is made again when a signal interrupted it.
    template <typename Call>
    auto run(const Call& call, const std::string& detail = {}) const {
        auto result = call();
        while (result < 0 && errno == EINTR)
            result = call();
        if (result < 0)
            fail(errno, detail);
        return result;
    }

    void requireRegularFile(const struct stat& status) const {
        if (S_ISDIR(status.st_mode))
            fail(EISDIR);
        if (!S_ISREG(status.st_mode))
            fail(EINVAL, ", which is not a regular file");
    }

private:
    std::string description;
};

class Descriptor {
public:
    explicit Descriptor(int number) : number(number) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() { ::close(number); }

    operator int() const { return number; }

private:
    int number;
};

/// A name in a folder that is held open, so that all that is done there happens in one and the same folder.
class Entry {
public:
    Entry(const Operation& operation, const fs::path& path)
        : operation(operation),
          folder(operation.run([folderPath = path.parent_path()] {
              return ::open(folderPath.empty() ? "." : folderPath.c_str(),
                            O_RDONLY | O_DIRECTORY | O_CLOEXEC);
          })),
          name(path.has_filename() ? path.filename().string() : ".") {}

    int getFolder() const { return folder; }

    const char* getName() const { return name.c_str(); }

    /// What has the name, a symbolic link for itself.
    std::optional<struct stat> findStatus() const {
        struct stat status {};
        if (::fstatat(folder, getName(), &status, AT_SYMLINK_NOFOLLOW) == 0)
            return status;
        if (errno != ENOENT)
            operation.fail(errno);
        return std::nullopt;
    }

    /// Makes what was done to the folder durable; `detail` says what holds when that fails.
    void syncFolder(const std::string& detail) const {
        operation.run([this] { return ::fsync(folder); }, detail);
    }

private:
    const Operation& operation;
    Descriptor folder;
    std::string name;
};

std::string makeTemporaryName() {
    std::random_device random;
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), ".norel-%08x%08x.tmp", random(), random());
    return name.data();
}

/// A new file next to the one that it is to replace; removed again unless it was renamed.
class TemporaryFile {
public:
    TemporaryFile(const Operation& operation, const Entry& target, mode_t mode)
        : operation(operation), target(target), name(makeTemporaryName()), file(operation.run([&] {
              constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
              return ::openat(target.getFolder(), name.c_str(), flags, mode);
          })) {}

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile() {
        if (!isRenamed)
            ::unlinkat(target.getFolder(), name.c_str(), 0);
    }

    /// The mode, and the owner as far as the system lets the caller give a file away.
    void takeOwnerAndMode(const struct stat& replaced) const {
        const bool keepsOwner = ::fchown(file, replaced.st_uid, replaced.st_gid) == 0;
        [[maybe_unused]] const int group =
            keepsOwner ? 0 : ::fchown(file, static_cast<uid_t>(-1), replaced.st_gid);
        const mode_t bits = keepsOwner ? 07777 : 0777; // a set-user-ID bit must not serve another user
        operation.run([&] { return ::fchmod(file, replaced.st_mode & bits); });
    }

    void write(std::string_view text) const {
        while (!text.empty()) {
            const auto written = operation.run([&] { return ::write(file, text.data(), text.size()); });
            text.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    void sync() const {
        operation.run([this] { return ::fsync(file); });
    }

    void replaceTarget() {
        const int folder = target.getFolder();
        operation.run([&] { return ::renameat(folder, name.c_str(), folder, target.getName()); });
        isRenamed = true;
    }

private:
    const Operation& operation;
    const Entry& target;
    std::string name;
    Descriptor file;
    bool isRenamed = false;
};

/// Where a chain of symbolic links ends, whether there is a file or not.
fs::path followLinks(const Operation& operation, fs::path path) {
    constexpr int maximumLinks = 40; // as many as the system follows
    std::error_code isNoLink;
    for (int links = 0;; ++links) {
        const fs::path target = fs::read_symlink(path, isNoLink);
        if (isNoLink)
            return path;
        if (links == maximumLinks)
            operation.fail(ELOOP);
        path = path.parent_path() / target;
    }
}

} // namespace

std::string DurableTextFileStorage::read(const fs::path& path) {
    const Operation operation("read", path);
    // Not blocking: a FIFO would wait for a writer.
    const Descriptor file(
        operation.run([&] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    struct stat status {};
    operation.run([&] { return ::fstat(file, &status); });
    operation.requireRegularFile(status);
    std::string text;
    text.reserve(static_cast<std::size_t>(status.st_size));
    std::array<char, 65536> piece;
    while (const auto size = operation.run([&] { return ::read(file, piece.data(), piece.size()); }))
        text.append(piece.data(), static_cast<std::size_t>(size));
    return text;
}

void DurableTextFileStorage::remove(const fs::path& path) {
    const Operation operation("remove", path);
    const Entry entry(operation, path);
    const std::optional<struct stat> status = entry.findStatus();
    if (!status)
        operation.fail(ENOENT);
    if (!S_ISLNK(status->st_mode))
        operation.requireRegularFile(*status);
    operation.run([&] { return ::unlinkat(entry.getFolder(), entry.getName(), 0); });
    entry.syncFolder(" for good: it is gone, but a crash may bring it back");
}

void DurableTextFileStorage::write(const fs::path& path, const std::string& text) {
    const Operation operation("write", path);
    const Entry target(operation, followLinks(operation, path));
    const std::optional<struct stat> replaced = target.findStatus();
    if (replaced) {
        operation.requireRegularFile(*replaced);
        operation.run([&] { return ::faccessat(target.getFolder(), target.getName(), W_OK, AT_EACCESS); });
    }
    // A file that replaces another is its owner's alone until it has the other's mode.
    TemporaryFile temporary(operation, target, replaced ? 0600 : 0666);
    temporary.write(text);
    if (replaced)
        temporary.takeOwnerAndMode(*replaced); // after the writing, which takes a set-user-ID bit away
    temporary.sync();
    temporary.replaceTarget();
    target.syncFolder(" for good: the new text is in place, but a crash may bring the old one back");
}

} // namespace norel::Desktop::Storage

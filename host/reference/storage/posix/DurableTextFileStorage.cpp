#include "norel/Desktop/Storage/DurableTextFileStorage.h"

#include "FileAccess.h"
#include "Operation.h"
#include "SystemCalls.h"
#include "TemporaryFile.h"
#include "Wording.h"

#include <array>
#include <fcntl.h>
#include <utility>

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;

/// Where a chain of symbolic links ends, whether a file exists there or not.
fs::path followLinks(const Operation& operation, fs::path path) {
    constexpr int maximumLinks = 40; // as many as the system follows
    std::array<char, 4096> target;   // more than a link can hold
    for (int links = 0;; ++links) {
        const ssize_t size = Operation::attempt(
            [&] { return operation.getSystem().readlink(path.c_str(), target.data(), target.size()); });
        if (size < 0 && (errno == EINVAL || errno == ENOENT)) // no link, or nothing at all
            return path;
        if (size < 0)
            operation.fail(errno);
        if (links == maximumLinks)
            operation.fail(ELOOP);
        path = path.parent_path() / std::string(target.data(), static_cast<std::size_t>(size));
    }
}

} // namespace

DurableTextFileStorage::DurableTextFileStorage(NoticeHandler onNotCarriedOver)
    : DurableTextFileStorage(std::move(onNotCarriedOver), std::make_shared<SystemCalls>()) {}

DurableTextFileStorage::DurableTextFileStorage(NoticeHandler onNotCarriedOver,
                                               std::shared_ptr<SystemCalls> systemCalls)
    : noticeHandler(std::move(onNotCarriedOver)), system(std::move(systemCalls)) {}

std::string DurableTextFileStorage::read(const fs::path& path) {
    const Operation operation(*system, "read", path);
    const Descriptor file(operation.openForReading(path));
    const struct stat status = operation.getStatus(file);
    operation.requireRegularFile(status);
    std::string text;
    text.reserve(static_cast<std::size_t>(status.st_size));
    std::array<char, 65536> piece;
    while (const auto size = operation.run([&] { return system->read(file, piece.data(), piece.size()); }))
        text.append(piece.data(), static_cast<std::size_t>(size));
    return text;
}

void DurableTextFileStorage::remove(const fs::path& path) {
    const Operation operation(*system, "remove", path);
    const Entry entry(operation, path);
    const std::optional<struct stat> status = entry.findStatus();
    if (!status)
        operation.fail(ENOENT);
    if (!S_ISLNK(status->st_mode))
        operation.requireRegularFile(*status);
    operation.run([&] { return system->unlinkat(entry.getFolder(), entry.getName()); });
    entry.syncFolder(Wording::REMOVED);
}

void DurableTextFileStorage::write(const fs::path& path, const std::string& text) {
    const Operation operation(*system, "write", path);
    const Entry target(operation, followLinks(operation, path));
    std::optional<Descriptor> replaced;
    if (const std::optional<struct stat> status = target.findStatus()) {
        operation.requireRegularFile(*status);
        // Only who may write the file may replace it.
        constexpr int flags = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
        replaced.emplace(
            operation.run([&] { return system->openat(target.getFolder(), target.getName(), flags); }));
        if (status->st_nlink > 1 && noticeHandler)
            noticeHandler(Wording::describeOtherLinks(path));
    }
    // A file that replaces another can be accessed only by its owner until it has the access of the other.
    TemporaryFile temporary(operation, target, replaced ? 0600 : 0666);
    temporary.removeAbandonedFiles();
    temporary.write(text);
    if (replaced) // after writing, which clears a set-user-ID bit
        copyAccess(operation, *replaced, temporary.getFile(), path, noticeHandler);
    temporary.sync();
    temporary.replaceTarget();
    target.syncFolder(Wording::WRITTEN);
}

void DurableTextFileStorage::create(const fs::path& path, const std::string& text) {
    createFile(path, text, nullptr);
}

void DurableTextFileStorage::create(const fs::path& path, const std::string& text, const fs::path& original) {
    createFile(path, text, &original);
}

void DurableTextFileStorage::createFile(const fs::path& path, const std::string& text,
                                        const fs::path* original) {
    const Operation operation(*system, "create", path);
    const Entry target(operation, path);
    if (target.findStatus())
        operation.fail(EEXIST);
    std::optional<Descriptor> like;
    if (original != nullptr) {
        const Operation opening(*system, Wording::describeCreationLike(path), *original);
        like.emplace(opening.openForReading(*original));
        opening.requireRegularFile(opening.getStatus(*like));
    }
    TemporaryFile temporary(operation, target, like ? 0600 : 0666);
    temporary.removeAbandonedFiles();
    temporary.write(text);
    if (like)
        copyAccess(operation, *like, temporary.getFile(), *original, noticeHandler);
    temporary.sync();
    temporary.becomeTarget();
    target.syncFolder(Wording::CREATED);
}

} // namespace norel::Desktop::Storage

#include "norel/Desktop/Storage/DurableTextFileStorage.h"

#include "Operation.h"
#include "SystemCalls.h"
#include "TemporaryFile.h"
#include "Wording.h"

#include <array>
#include <optional>
#include <utility>

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;

constexpr DWORD KEPT_ATTRIBUTES = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;

bool isAbsent(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

void open(const Operation& operation, const std::wstring& path, DWORD access, Handle& file) {
    operation.runPatiently([&] { return operation.getSystem().open(path, access, file); }, isBusy);
}

/// The access of a file, for another one.
class Access {
public:
    Access(const Operation& operation, HANDLE file)
        : attributes(operation.getInformation(file).dwFileAttributes) {
        const auto get = [&] { return operation.getSystem().getSecurity(file, security); };
        operation.run([&] { return get() || isUnsupported(::GetLastError()); });
    }

    DWORD getAttributes() const {
        const DWORD kept = attributes & KEPT_ATTRIBUTES;
        return kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL;
    }

    const Security* getSecurity() const { return security.descriptor != nullptr ? &security : nullptr; }

    /// Reports an owner who is not that of the new file.
    void compareOwner(const Operation& operation, HANDLE made, const fs::path& path,
                      const DurableTextFileStorage::NoticeHandler& notice) const {
        if (security.owner == nullptr || !notice)
            return;
        Security own;
        operation.run([&] { return operation.getSystem().getSecurity(made, own); });
        if (::EqualSid(security.owner, own.owner) == 0)
            notice("the owner" + Wording::ofFile(path) + Wording::NOT_CARRIED_OVER +
                   std::make_error_code(std::errc::operation_not_permitted).message());
    }

private:
    static bool isUnsupported(DWORD error) {
        return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION;
    }

    DWORD attributes;
    Security security;
};

} // namespace

DurableTextFileStorage::DurableTextFileStorage(NoticeHandler onNotCarriedOver)
    : DurableTextFileStorage(std::move(onNotCarriedOver), std::make_shared<SystemCalls>()) {}

DurableTextFileStorage::DurableTextFileStorage(NoticeHandler onNotCarriedOver,
                                               std::shared_ptr<SystemCalls> systemCalls)
    : noticeHandler(std::move(onNotCarriedOver)), system(std::move(systemCalls)) {}

std::string DurableTextFileStorage::read(const fs::path& path) {
    const Operation operation(*system, "read", path);
    Handle file;
    open(operation, toSystemPath(path), GENERIC_READ, file);
    operation.requireRegularFile(file);
    std::string text;
    text.reserve(operation.getInformation(file).nFileSizeLow);
    std::array<char, 65536> piece;
    DWORD count = 0;
    do {
        operation.run(
            [&] { return system->read(file, piece.data(), static_cast<DWORD>(piece.size()), count); });
        text.append(piece.data(), count);
    } while (count > 0);
    return text;
}

void DurableTextFileStorage::remove(const fs::path& path) {
    const Operation operation(*system, "remove", path);
    const Entry entry(operation, toSystemPath(path));
    Handle file;
    operation.run([&] {
        return system->open(entry.getPath(), FILE_READ_ATTRIBUTES, file, FILE_FLAG_OPEN_REPARSE_POINT);
    });
    if ((operation.getInformation(file).dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        operation.requireRegularFile(file);
    operation.runPatiently(
        [&] {
            return system->open(entry.getPath(), DELETE, file, FILE_FLAG_OPEN_REPARSE_POINT) &&
                   system->remove(file);
        },
        isBusy);
    file.reset(INVALID_HANDLE_VALUE); // older systems remove it only now
    entry.flushFolder(Wording::REMOVED);
}

void DurableTextFileStorage::write(const fs::path& path, const std::string& text) {
    const Operation operation(*system, "write", path);
    operation.requireFileName(path);
    std::wstring targetPath = toSystemPath(path);
    Handle replaced;
    std::optional<Access> access;
    DWORD attributes = 0;
    if (system->getAttributes(targetPath, attributes)) {
        operation.run(
            [&] { return system->open(targetPath, FILE_READ_ATTRIBUTES | READ_CONTROL, replaced); });
        operation.requireRegularFile(replaced);
        if ((operation.getInformation(replaced).dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0)
            operation.fail(std::make_error_code(std::errc::permission_denied));
        access.emplace(operation, replaced);
        if (operation.getInformation(replaced).nNumberOfLinks > 1 && noticeHandler)
            noticeHandler(Wording::describeOtherLinks(path));
        if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) // a symbolic link
            operation.run([&] { return system->getFinalPath(replaced, targetPath); });
        open(operation, targetPath, FILE_WRITE_DATA, replaced); // only who may write the file may replace it
        replaced.reset(INVALID_HANDLE_VALUE);
    } else {
        operation.run([&] { return isAbsent(::GetLastError()); });
    }
    const Entry target(operation, targetPath);
    TemporaryFile temporary(operation, target, access ? access->getAttributes() : FILE_ATTRIBUTE_NORMAL,
                            access ? access->getSecurity() : nullptr);
    temporary.removeAbandonedFiles();
    if (access)
        access->compareOwner(operation, temporary.getFile(), path, noticeHandler);
    temporary.write(text);
    temporary.flush();
    temporary.takeName(true);
    target.flushFolder(Wording::WRITTEN);
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
    operation.requireFileName(path);
    const Entry target(operation, toSystemPath(path));
    DWORD attributes = 0;
    if (system->getAttributes(target.getPath(), attributes))
        operation.fail(std::make_error_code(std::errc::file_exists));
    operation.run([] { return isAbsent(::GetLastError()); });
    std::optional<Access> access;
    if (original != nullptr) {
        const Operation opening(*system, Wording::describeCreationLike(path), *original);
        Handle like;
        open(opening, toSystemPath(*original), GENERIC_READ | READ_CONTROL, like);
        opening.requireRegularFile(like);
        access.emplace(opening, like);
    }
    TemporaryFile temporary(operation, target, access ? access->getAttributes() : FILE_ATTRIBUTE_NORMAL,
                            access ? access->getSecurity() : nullptr);
    temporary.removeAbandonedFiles();
    if (access)
        access->compareOwner(operation, temporary.getFile(), *original, noticeHandler);
    temporary.write(text);
    temporary.flush();
    temporary.takeName(false);
    target.flushFolder(Wording::CREATED);
}

} // namespace norel::Desktop::Storage

#include "documents/ProfileFile.h"

#include "documents/Failure.h"
#include "documents/FollowLinks.h"
#include "documents/Source.h"
#include "norel/Desktop/Domain/Payloads/ProfileListFileStorage.h"
#include "norel/Desktop/Domain/Payloads/UseCase/GetProfileListFromStorage.h"
#include "terminal/Text.h"

#include <system_error>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

std::shared_ptr<ProfileListStorage> openStorage(const DocumentAccess& documents, const std::string& file) {
    return about(file, [&] {
        return std::make_shared<ProfileListFileStorage>(file, documents.textFiles, documents.serializer);
    });
}

FileLock lockExpected(const std::string& file, FileToChange::Expected expected, std::chrono::seconds wait) {
    if (expected == FileToChange::Expected::File)
        requireFile(file);
    return lockFile(file, wait);
}

/// Null where the file is missing and may be.
std::shared_ptr<ProfileListStorage> openExpected(const DocumentAccess& documents, const std::string& file,
                                                 FileToChange::Expected expected) {
    using Expected = FileToChange::Expected;
    if (expected == Expected::File)
        requireFile(file); // once more: it may have gone before it was locked
    if (expected == Expected::Nothing)
        requireNoFile(file);
    const bool exists = about(file, [&] { return fs::exists(file); });
    return exists ? openStorage(documents, file) : nullptr;
}

} // namespace

void requireFile(const std::string& file) {
    std::error_code error;
    if (!fs::exists(file, error))
        throw Failure(Source{file, {}}.getName(), error ? error.message() : "there is no such file");
}

void requireNoFile(const std::string& file) {
    about(file, [&] {
        if (fs::exists(fs::symlink_status(file)))
            throw Failure(file, "the file already exists; --force replaces it");
    });
}

std::shared_ptr<ProfileListStorage> openFile(const DocumentAccess& documents, const std::string& file) {
    requireFile(file);
    return openStorage(documents, file);
}

ProfileList readProfiles(const std::string& subject, const std::shared_ptr<ProfileListStorage>& storage) {
    return about(subject, [&] { return UseCase::GetProfileListFromStorage(storage).execute(); });
}

void requireChangeable(const std::string& file) {
    const Source source{file, {}};
    if (source.isBuiltIn() || source.isAddress()) // such as arguments in the wrong order
        throw Failure(source.getName(), "this is a source that cannot be changed");
}

FileLock lockFile(const std::string& file, std::chrono::seconds wait) {
    requireChangeable(file);
    return about(file, [&] {
        try {
            return FileLock(file, wait);
        } catch (const FileLock::TimedOut& error) {
            const auto seconds = static_cast<std::size_t>(wait.count());
            throw Failure(file, std::string(error.what()) + " after " + counted(seconds, "second") +
                                    "; --wait SECONDS waits longer");
        }
    });
}

FileToChange::FileToChange(const DocumentAccess& access, const std::string& name, Expected expected,
                           std::chrono::seconds wait)
    : documents(access),
      file(name),
      lock(lockExpected(name, expected, wait)),
      storage(openExpected(access, name, expected)) {}

ProfileList FileToChange::read() const { return storage ? readProfiles(file, storage) : ProfileList(); }

void FileToChange::write(const ProfileList& list) const {
    about(file, [&] {
        if (storage)
            storage->write(list);
        else // never replaces what another process has just made
            documents.textFiles->create(followLinks(file), documents.serializer->serialize(list));
    });
}

} // namespace norel::Desktop::PayloadProfiles

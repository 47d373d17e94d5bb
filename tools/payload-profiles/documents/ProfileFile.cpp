#include "documents/ProfileFile.h"

#include "documents/Failure.h"
#include "documents/FollowLinks.h"
#include "documents/HiddenPath.h"
#include "documents/ReadDocument.h"
#include "documents/Source.h"
#include "norel/Desktop/Domain/Payloads/UseCase/GetProfileListFromStorage.h"
#include "terminal/Text.h"
#include "text/Utf8Path.h"

#include <chrono>
#include <system_error>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<const FileLock> lockExpected(const std::string& file, FileToChange::Expected expected,
                                             const ChangeOptions& options) {
    requireChangeable(file);
    if (expected == FileToChange::Expected::File)
        requireFile(file);
    if (options.dryRun)
        return nullptr;
    return std::unique_ptr<const FileLock>(new FileLock(lockFile(file, options))); // cannot be moved
}

/// Whether the file exists, after it has been locked.
bool findExpected(const std::string& file, FileToChange::Expected expected) {
    using Expected = FileToChange::Expected;
    if (expected == Expected::File)
        requireFile(file); // once more: it may have been removed before it was locked
    if (expected == Expected::Nothing)
        requireNoFile(file);
    return about(file, [&] { return fs::exists(Text::makePath(file)); });
}

} // namespace

void requireFile(const std::string& file) {
    std::error_code error;
    if (!fs::exists(Text::makePath(file), error))
        throw Failure(Source{file, {}}.getName(), error ? error.message() : "there is no such file");
}

void requireNoFile(const std::string& file) {
    about(file, [&] {
        if (fs::exists(fs::symlink_status(Text::makePath(file))))
            throw Failure(file, "the file already exists; --force replaces it");
    });
}

ProfileList readFile(const DocumentAccess& documents, const std::string& file, const TextObserver& onText) {
    requireFile(file);
    return about(file, [&] {
        const std::string text = documents.textFiles->read(Text::makePath(file));
        ProfileList list = readDocument(*documents.serializer, text, file);
        if (onText)
            onText(text);
        return list;
    });
}

ProfileList readProfiles(const std::string& subject, const std::shared_ptr<ProfileListStorage>& storage) {
    return about(subject, [&] { return UseCase::GetProfileListFromStorage(storage).execute(); });
}

void requireChangeable(const std::string& file) {
    const Source source{file, {}};
    if (source.isBuiltIn() || source.isAddress()) // such as arguments in the wrong order
        throw Failure(source.getName(), "this is a source that cannot be changed");
    if (file.empty())
        throw Failure(file, "the name of a file cannot be empty");
}

FileLock lockFile(const std::string& file, const ChangeOptions& options) {
    requireChangeable(file);
    return about(file, [&] {
        try {
            return FileLock(Text::makePath(file), std::chrono::seconds(options.waitSeconds));
        } catch (const FileLock::TimedOut& error) {
            throw Failure(file, std::string(error.what()) + " after " +
                                    counted(options.waitSeconds, "second") + "; --wait SECONDS waits longer");
        }
    });
}

void keepBackup(const DocumentAccess& documents, const std::string& file) {
    const std::string backup = file + ".bak";
    about(backup, [&] {
        const fs::path path = Text::makePath(backup);
        const fs::path draft = makeHiddenPath(path, ".norel-new");
        if (fs::exists(fs::symlink_status(draft))) // a killed process left it
            documents.textFiles->remove(draft);
        const fs::path source = Text::makePath(file);
        documents.textFiles->create(draft, documents.textFiles->read(source), source);
        std::error_code error;
        fs::rename(draft, path, error); // replaces a link itself, not what it leads to
        if (error) {
            documents.textFiles->remove(draft);
            throw std::runtime_error("cannot replace it: " + error.message());
        }
    });
}

FileToChange::FileToChange(const DocumentAccess& access, const std::string& name, Expected expected,
                           const ChangeOptions& changeOptions)
    : documents(access),
      file(name),
      options(changeOptions),
      lock(lockExpected(name, expected, options)),
      exists(findExpected(name, expected)) {}

ProfileList FileToChange::read() const {
    if (!exists)
        return {};
    return about(file, [&] {
        const std::string text = documents.textFiles->read(Text::makePath(file));
        ProfileList list = readDocument(*documents.serializer, text, file);
        if (!options.dropUnknown)
            requireNothingDropped(text);
        return list;
    });
}

void FileToChange::write(const ProfileList& list) const {
    if (options.dryRun)
        return;
    if (exists && options.backup)
        keepBackup(documents, file);
    about(file, [&] {
        const fs::path path = Text::makePath(file);
        const std::string text = documents.serializer->serialize(list);
        if (exists)
            documents.textFiles->write(path, text);
        else // never replaces what another process has just made
            documents.textFiles->create(followLinks(path), text);
    });
}

} // namespace norel::Desktop::PayloadProfiles

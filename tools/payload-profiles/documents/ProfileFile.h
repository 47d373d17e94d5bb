#pragma once

#include "documents/DocumentAccess.h"
#include "documents/FileLock.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

#include <memory>
#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Throws Failure when nothing exists at the path, or that cannot be determined.
void requireFile(const std::string& file);

/// Throws Failure when anything exists at the path, even a symbolic link that leads nowhere.
void requireNoFile(const std::string& file);

/// The profile list of an existing file. Throws Failure.
ProfileList readFile(const DocumentAccess& documents, const std::string& file,
                     const TextObserver& onText = {});

/// The list of a storage; errors become a Failure of `subject`.
ProfileList readProfiles(const std::string& subject, const std::shared_ptr<ProfileListStorage>& storage);

/// Throws Failure for a source that cannot be changed, and for an empty name.
void requireChangeable(const std::string& file);

/// How a command changes a file.
struct ChangeOptions {
    unsigned int waitSeconds = 10; ///< for a file that another process changes
    bool dryRun = false;           ///< do everything but write
    bool backup = false;           ///< keep the previous text
    bool dropUnknown = false;      ///< write even if that drops members that are not known
};

/// The lock that a command holds from before it reads a file until after it has written it. Throws Failure
/// when the file is still locked after the wait, and for a source that cannot be changed.
FileLock lockFile(const std::string& file, const ChangeOptions& options);

/// Keeps the text of an existing file as FILE.bak, with the access of the file. A previous FILE.bak is
/// replaced once the new one is durable. Throws Failure.
void keepBackup(const DocumentAccess& documents, const std::string& file);

/// A file that a command reads, changes and writes under one lock; in a dry run it is neither locked nor
/// written. All operations throw Failure.
class FileToChange {
public:
    /// What must exist at the path. A missing file is an empty list; writing creates it.
    enum class Expected { Anything, File, Nothing };

    FileToChange(const DocumentAccess& access, const std::string& name, Expected expected,
                 const ChangeOptions& changeOptions);

    FileToChange(const FileToChange&) = delete;
    FileToChange& operator=(const FileToChange&) = delete;

    /// Refuses a document with members that would be dropped, unless the options allow it.
    ProfileList read() const;
    /// At most once.
    void write(const ProfileList& list) const;

private:
    const DocumentAccess& documents;
    std::string file;
    ChangeOptions options;
    std::unique_ptr<const FileLock> lock; ///< null in a dry run
    bool exists;
};

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "documents/DocumentAccess.h"
#include "documents/FileLock.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

#include <chrono>
#include <memory>
#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Throws Failure when nothing exists at the path, or that cannot be determined.
void requireFile(const std::string& file);

/// Throws Failure when anything exists at the path, even a symbolic link that leads nowhere.
void requireNoFile(const std::string& file);

/// The profile list of an existing file. Throws Failure; does not create a missing file, as the constructor
/// of a file storage would.
std::shared_ptr<ProfileListStorage> openFile(const DocumentAccess& documents, const std::string& file);

/// The list of a storage; errors become a Failure of `subject`.
ProfileList readProfiles(const std::string& subject, const std::shared_ptr<ProfileListStorage>& storage);

/// Throws Failure for a source that cannot be changed.
void requireChangeable(const std::string& file);

/// The lock that a command holds from before it reads a file until after it has written it. Throws Failure
/// when the file is still locked after the wait, and for a source that cannot be changed.
FileLock lockFile(const std::string& file, std::chrono::seconds wait);

/// A file that a command reads, changes and writes under one lock. All operations throw Failure.
class FileToChange {
public:
    /// What must exist at the path. A missing file is an empty list; writing creates it.
    enum class Expected { Anything, File, Nothing };

    FileToChange(const DocumentAccess& access, const std::string& name, Expected expected,
                 std::chrono::seconds wait);

    FileToChange(const FileToChange&) = delete;
    FileToChange& operator=(const FileToChange&) = delete;

    ProfileList read() const;
    /// At most once.
    void write(const ProfileList& list) const;

private:
    const DocumentAccess& documents;
    std::string file;
    FileLock lock;
    std::shared_ptr<ProfileListStorage> storage; ///< null for a missing file
};

} // namespace norel::Desktop::PayloadProfiles

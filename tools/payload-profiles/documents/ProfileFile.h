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
    /// What must exist at the path; for Anything and Nothing, a missing file is created empty, and removed
    /// again if it stays empty.
    enum class Expected { Anything, File, Nothing };

    FileToChange(const DocumentAccess& documents, const std::string& file, Expected expected,
                 std::chrono::seconds wait);

    FileToChange(const FileToChange&) = delete;
    FileToChange& operator=(const FileToChange&) = delete;
    ~FileToChange();

    ProfileList read() const { return readProfiles(file, storage); }
    void write(const ProfileList& list) const;

private:
    std::string file;
    FileLock lock;
    bool isCreated;
    std::shared_ptr<ProfileListStorage> storage;
};

} // namespace norel::Desktop::PayloadProfiles

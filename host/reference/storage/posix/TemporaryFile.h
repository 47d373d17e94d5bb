#pragma once

#include "Operation.h"
#include "TemporaryName.h"

#include <string>
#include <string_view>

namespace norel::Desktop::Storage {

/// A new file that is to take a name in its folder. Until then it has a temporary name and is locked, so that
/// it can be told from what a killed writer left; it is removed at the end unless it took the name.
class TemporaryFile {
public:
    TemporaryFile(const Operation& currentOperation, const Entry& finalName, mode_t mode);

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile();

    int getFile() const { return file; }

    /// Removes the temporary files that killed writers left for the same name an hour ago or earlier.
    void removeAbandonedFiles() const;

    void write(std::string_view text) const;

    void sync() const;

    /// Takes the name, from another file if need be.
    void replaceTarget();

    /// Takes the name; throws EEXIST when it is taken.
    void becomeTarget();

private:
    int createFile(mode_t mode) const;
    void removeAbandonedFile(const std::string& abandoned, const struct stat& ownStatus) const;
    void removeTemporaryName();

    const Operation& operation;
    SystemCalls& system;
    const Entry& target;
    TemporaryName name;
    Descriptor file;
    bool hasTemporaryName = true;
};

} // namespace norel::Desktop::Storage

#pragma once

#include "Operation.h"
#include "TemporaryName.h"

#include <string_view>

namespace norel::Desktop::Storage {

/// A new file that is to take a name in its folder. Until then it has a temporary name, and it is removed at
/// the end unless it took the name.
class TemporaryFile {
public:
    /// With the attributes, and the access control list of `security` if that is not null.
    TemporaryFile(const Operation& currentOperation, const Entry& finalName, DWORD attributes,
                  const Security* security);

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile();

    HANDLE getFile() const { return file; }

    /// Removes the temporary files that killed writers left for the same name an hour ago or earlier.
    void removeAbandonedFiles() const;

    void write(std::string_view text) const;

    void flush() const;

    /// Takes the name; from another file if `replaces` is set, else throws EEXIST when it is taken.
    void takeName(bool replaces);

private:
    void removeAbandonedFile(const std::wstring& path, const FILETIME& now) const;

    const Operation& operation;
    SystemCalls& system;
    const Entry& target;
    TemporaryName name;
    std::wstring path;
    Handle file;
    bool hasTemporaryName = true;
};

} // namespace norel::Desktop::Storage

#pragma once

#include "norel/Desktop/Storage/Export.h"

#include <cerrno>
#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

namespace norel::Desktop::Storage {

/// The system calls of the store, with the results and the errno of the functions of the same names. A test
/// derives a class that makes chosen calls fail.
class NOREL_STORAGE_EXPORT SystemCalls {
public:
    virtual ~SystemCalls();

    /// `name` is relative to the open folder, or to the current one for AT_FDCWD.
    int openat(int folder, const char* name, int flags, mode_t mode = 0);
    int fstatat(int folder, const char* name, struct stat& status);
    ssize_t readlink(const char* path, char* target, std::size_t size);
    int renameat(int folder, const char* from, const char* to);
    /// Fails with EEXIST when `to` exists.
    int renameatExclusively(int folder, const char* from, const char* to);
    int linkat(int folder, const char* from, const char* to);
    int unlinkat(int folder, const char* name);
    /// The names in the folder, in any order; opens, reads and closes it.
    int listNames(int folder, std::vector<std::string>& names);

    ssize_t read(int file, char* bytes, std::size_t size);
    ssize_t write(int file, const char* bytes, std::size_t size);
    int fsync(int file);
    int fstat(int file, struct stat& status);
    int fchown(int file, uid_t owner, gid_t group);
    int fchmod(int file, mode_t mode);
    int flock(int file, int operation);

    /// Extended attributes; ENOTSUP on systems other than Linux.
    ssize_t flistxattr(int file, char* names, std::size_t size);
    ssize_t fgetxattr(int file, const char* name, char* value, std::size_t size);
    int fsetxattr(int file, const char* name, const char* value, std::size_t size);
    int fremovexattr(int file, const char* name);

protected:
    /// Called before each system call with its name, the descriptor and the name in the folder ("" if it has
    /// none). The call is made when the result is 0; otherwise it fails with the result as its errno.
    virtual int before(const char* call, int file, const char* name);

    std::size_t longestWrite = std::size_t{1} << 30U; ///< some systems do not write more than 2 GiB at once

private:
    template <typename Function>
    auto make(const char* call, int file, const char* name, const Function& function) -> decltype(function());
};

} // namespace norel::Desktop::Storage

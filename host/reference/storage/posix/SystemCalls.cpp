#include "SystemCalls.h"

#include <algorithm>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#ifdef __linux__
#    include <sys/xattr.h>
#endif

namespace norel::Desktop::Storage {
namespace {

int readNames(int folder, std::vector<std::string>& names) {
    const int file = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* const entries = file < 0 ? nullptr : ::fdopendir(file);
    if (entries == nullptr) {
        if (file >= 0)
            ::close(file);
        return -1;
    }
    while (const dirent* entry = ::readdir(entries))
        names.emplace_back(entry->d_name);
    return ::closedir(entries);
}

#ifndef __linux__
int notSupported() {
    errno = ENOTSUP;
    return -1;
}
#endif

} // namespace

SystemCalls::~SystemCalls() = default;

int SystemCalls::before(const char*, int, const char*) { return 0; }

template <typename Function>
auto SystemCalls::make(const char* call, int file, const char* name, const Function& function)
    -> decltype(function()) {
    if (const int error = before(call, file, name); error != 0) {
        errno = error;
        return -1;
    }
    return function();
}

int SystemCalls::openat(int folder, const char* name, int flags, mode_t mode) {
    return make("openat", folder, name, [&] { return ::openat(folder, name, flags | O_CLOEXEC, mode); });
}

int SystemCalls::fstatat(int folder, const char* name, struct stat& status) {
    return make("fstatat", folder, name,
                [&] { return ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW); });
}

ssize_t SystemCalls::readlink(const char* path, char* target, std::size_t size) {
    return make("readlink", AT_FDCWD, path, [&] { return ::readlink(path, target, size); });
}

int SystemCalls::renameat(int folder, const char* from, const char* to) {
    return make("renameat", folder, from, [&] { return ::renameat(folder, from, folder, to); });
}

int SystemCalls::renameatExclusively([[maybe_unused]] int folder, [[maybe_unused]] const char* from,
                                     [[maybe_unused]] const char* to) {
    return make("renameatExclusively", folder, from, [&] {
#ifdef RENAME_NOREPLACE
        return ::renameat2(folder, from, folder, to, RENAME_NOREPLACE);
#else
        errno = ENOSYS;
        return -1;
#endif
    });
}

int SystemCalls::linkat(int folder, const char* from, const char* to) {
    return make("linkat", folder, from, [&] { return ::linkat(folder, from, folder, to, 0); });
}

int SystemCalls::unlinkat(int folder, const char* name) {
    return make("unlinkat", folder, name, [&] { return ::unlinkat(folder, name, 0); });
}

int SystemCalls::listNames(int folder, std::vector<std::string>& names) {
    return make("listNames", folder, "", [&] { return readNames(folder, names); });
}

ssize_t SystemCalls::read(int file, char* bytes, std::size_t size) {
    return make("read", file, "", [&] { return ::read(file, bytes, size); });
}

ssize_t SystemCalls::write(int file, const char* bytes, std::size_t size) {
    return make("write", file, "", [&] { return ::write(file, bytes, std::min(size, longestWrite)); });
}

int SystemCalls::fsync(int file) {
    return make("fsync", file, "", [&] { return ::fsync(file); });
}

int SystemCalls::fstat(int file, struct stat& status) {
    return make("fstat", file, "", [&] { return ::fstat(file, &status); });
}

int SystemCalls::fchown(int file, uid_t owner, gid_t group) {
    return make("fchown", file, "", [&] { return ::fchown(file, owner, group); });
}

int SystemCalls::fchmod(int file, mode_t mode) {
    return make("fchmod", file, "", [&] { return ::fchmod(file, mode); });
}

int SystemCalls::flock(int file, int operation) {
    return make("flock", file, "", [&] { return ::flock(file, operation); });
}

#ifdef __linux__

ssize_t SystemCalls::flistxattr(int file, char* names, std::size_t size) {
    return make("flistxattr", file, "", [&] { return ::flistxattr(file, names, size); });
}

ssize_t SystemCalls::fgetxattr(int file, const char* name, char* value, std::size_t size) {
    return make("fgetxattr", file, name, [&] { return ::fgetxattr(file, name, value, size); });
}

int SystemCalls::fsetxattr(int file, const char* name, const char* value, std::size_t size) {
    return make("fsetxattr", file, name, [&] { return ::fsetxattr(file, name, value, size, 0); });
}

int SystemCalls::fremovexattr(int file, const char* name) {
    return make("fremovexattr", file, name, [&] { return ::fremovexattr(file, name); });
}

#else

ssize_t SystemCalls::flistxattr(int, char*, std::size_t) { return notSupported(); }
ssize_t SystemCalls::fgetxattr(int, const char*, char*, std::size_t) { return notSupported(); }
int SystemCalls::fsetxattr(int, const char*, const char*, std::size_t) { return notSupported(); }
int SystemCalls::fremovexattr(int, const char*) { return notSupported(); }

#endif

} // namespace norel::Desktop::Storage

#pragma once

#include "SystemCalls.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>

namespace norel::Desktop::Storage {

/// An open file or folder, closed at the end; -1 when it could not be opened.
class Descriptor {
public:
    explicit Descriptor(int openFile) : number(openFile) {}

    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    ~Descriptor() {
        if (number >= 0)
            ::close(number);
    }

    operator int() const { return number; }

private:
    int number;
};

/// What the store does to a path, as its errors name it: "cannot VERB "PATH"", a detail, the system's reason.
class Operation {
public:
    Operation(SystemCalls& systemCalls, const std::string& verb, const std::filesystem::path& path);

    SystemCalls& getSystem() const { return system; }

    /// Throws std::system_error.
    [[noreturn]] void fail(int error, const std::string& detail = {}) const;

    /// The result of a system call, which is repeated while signals interrupt it. Throws when it fails.
    template <typename Call>
    auto run(const Call& call, const std::string& detail = {}) const {
        const auto result = attempt(call);
        if (result < 0)
            fail(errno, detail);
        return result;
    }

    /// The result of a system call, which is repeated while signals interrupt it; negative when it fails.
    template <typename Call>
    static auto attempt(const Call& call) {
        auto result = call();
        while (result < 0 && errno == EINTR)
            result = call();
        return result;
    }

    struct stat getStatus(int file) const;

    void requireRegularFile(const struct stat& status) const;

    /// The regular file at the path, open for reading.
    int openForReading(const std::filesystem::path& path) const;

private:
    SystemCalls& system;
    std::string description;
};

/// A name in a folder that is held open, so that all that is done there happens in one and the same folder.
class Entry {
public:
    Entry(const Operation& currentOperation, const std::filesystem::path& path);

    int getFolder() const { return folder; }

    const char* getName() const { return name.c_str(); }

    /// The status of the file with the name; symbolic links are not followed.
    std::optional<struct stat> findStatus() const;

    /// Makes the changes of the folder durable; `detail` says what holds if that fails. A file system that
    /// does not sync folders is no failure.
    void syncFolder(const std::string& detail) const;

private:
    const Operation& operation;
    Descriptor folder;
    std::string name;
};

} // namespace norel::Desktop::Storage

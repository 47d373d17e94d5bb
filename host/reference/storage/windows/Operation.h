#pragma once

#include "SystemCalls.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>
#include <windows.h>

namespace norel::Desktop::Storage {

/// What the store does to a path, as its errors name it: "cannot VERB "PATH"", a detail, the system's reason.
class Operation {
public:
    Operation(SystemCalls& systemCalls, const std::string& verb, const std::filesystem::path& path);

    SystemCalls& getSystem() const { return system; }

    /// Throws std::system_error.
    [[noreturn]] void fail(const std::error_code& error, const std::string& detail = {}) const;

    /// Makes a system call. Throws when it fails.
    template <typename Call>
    void run(const Call& call, const std::string& detail = {}) const {
        if (!call())
            failByLastError(detail);
    }

    /// Makes a system call and repeats it for a second while it fails with an error that may pass: virus
    /// scanners and indexers open new files for a moment.
    template <typename Call>
    void runPatiently(const Call& call, bool (*mayPass)(DWORD error)) const {
        constexpr std::chrono::milliseconds pause(20);
        for (std::chrono::milliseconds waited(0); waited < std::chrono::seconds(1); waited += pause) {
            if (call())
                return;
            if (!mayPass(::GetLastError()))
                failByLastError({});
            std::this_thread::sleep_for(pause);
        }
        run(call);
    }

    BY_HANDLE_FILE_INFORMATION getInformation(HANDLE file) const;

    void requireRegularFile(HANDLE file) const;

    /// Throws for a name that no file should get: of a device, or with a colon, after which a stream follows.
    void requireFileName(const std::filesystem::path& path) const;

private:
    [[noreturn]] void failByLastError(const std::string& detail) const;

    SystemCalls& system;
    std::string description;
};

/// Whether another program has the file open.
bool isBusy(DWORD error);

/// The path in the form that may be longer than 260 characters.
std::wstring toSystemPath(const std::filesystem::path& path);

/// A name in a folder, which is held open.
class Entry {
public:
    /// `path` is a system path.
    Entry(const Operation& currentOperation, const std::wstring& path);

    const std::wstring& getPath() const { return path; }

    std::wstring getSibling(const std::wstring& name) const { return folderPath + name; }

    /// Makes the changes of the folder durable; `detail` says what holds if that fails. A file system that
    /// does not flush folders, or a user who may not, is no failure.
    void flushFolder(const std::string& detail) const;

private:
    const Operation& operation;
    std::wstring path, folderPath;
    Handle folder;
};

} // namespace norel::Desktop::Storage

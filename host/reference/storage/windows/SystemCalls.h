#pragma once

#include "norel/Desktop/Storage/Export.h"

#include <string>
#include <vector>
#include <windows.h>

namespace norel::Desktop::Storage {

/// An open file or folder, closed at the end.
class Handle {
public:
    Handle() = default;

    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    ~Handle() { close(); }

    operator HANDLE() const { return handle; }

    void reset(HANDLE newHandle) {
        close();
        handle = newHandle;
    }

private:
    void close() {
        if (handle != INVALID_HANDLE_VALUE)
            ::CloseHandle(handle);
    }

    HANDLE handle = INVALID_HANDLE_VALUE;
};

/// The owner and the access control list of a file.
struct Security {
    Security() = default;
    Security(const Security&) = delete;
    Security& operator=(const Security&) = delete;
    ~Security() { ::LocalFree(descriptor); }

    PSECURITY_DESCRIPTOR descriptor = nullptr; // holds the other two
    PSID owner = nullptr;
    PACL list = nullptr; // null: everybody may do everything
};

/// The system calls of the store. Each returns whether it succeeded, else GetLastError() gives the reason. A
/// test derives a class that makes chosen calls fail. Files and folders are opened such that others may use,
/// replace and remove them meanwhile, but a new file cannot be written by others.
class NOREL_STORAGE_EXPORT SystemCalls {
public:
    virtual ~SystemCalls();

    /// An existing file or folder; a symbolic link itself with FILE_FLAG_OPEN_REPARSE_POINT.
    bool open(const std::wstring& path, DWORD access, Handle& file, DWORD flags = 0);
    /// A file that does not exist, with the security if that is not null.
    bool create(const std::wstring& path, DWORD attributes, const Security* security, Handle& file);
    bool getAttributes(const std::wstring& path, DWORD& attributes);
    bool getInformation(HANDLE file, BY_HANDLE_FILE_INFORMATION& information);
    /// The path without symbolic links.
    bool getFinalPath(HANDLE file, std::wstring& path);
    bool getSecurity(HANDLE file, Security& security);
    bool read(HANDLE file, char* bytes, DWORD size, DWORD& count);
    bool write(HANDLE file, const char* bytes, DWORD size, DWORD& count);
    bool flush(HANDLE file);
    /// Even to a name whose file others have open, if `replaces` is set.
    bool rename(HANDLE file, const std::wstring& from, const std::wstring& to, bool replaces);
    /// Even a file that others have open.
    bool remove(HANDLE file);
    bool listNames(const std::wstring& pattern, std::vector<std::wstring>& names);

protected:
    /// Called before each system call with its name. The call is made when the result is 0; otherwise it
    /// fails with the result as its error.
    virtual DWORD before(const char* call);

    DWORD longestWrite = DWORD{1} << 30U;

private:
    template <typename Function>
    bool make(const char* call, const Function& function);
};

} // namespace norel::Desktop::Storage

#include "SystemCalls.h"

#include <aclapi.h>
#include <algorithm>
#include <cstddef>
#include <cstring>

namespace norel::Desktop::Storage {
namespace {

constexpr DWORD SHARED = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Declared by hand, as not all headers have them: of Windows 10, version 1607 and 1709.
constexpr auto RENAME_BY_POSIX_RULES = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
constexpr auto REMOVE_BY_POSIX_RULES = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr DWORD REPLACE_IF_EXISTS = 1, POSIX_RENAME = 2;
constexpr DWORD DELETE_FILE = 1, POSIX_DELETE = 2;

struct RenameRequest {
    DWORD flags;
    HANDLE folder; // none: the name is a path
    DWORD nameBytes;
    wchar_t name[1];
};

/// Whether the system or the file system does not know the request.
bool isUnknown(DWORD error) {
    return error == ERROR_INVALID_PARAMETER || error == ERROR_INVALID_FUNCTION ||
           error == ERROR_NOT_SUPPORTED || error == ERROR_CALL_NOT_IMPLEMENTED ||
           error == ERROR_INVALID_LEVEL;
}

bool renameByPosixRules(HANDLE file, const std::wstring& to, bool replaces) {
    const std::size_t nameBytes = to.size() * sizeof(wchar_t);
    std::vector<std::byte> buffer(sizeof(RenameRequest) + nameBytes);
    RenameRequest request{};
    request.flags = POSIX_RENAME | (replaces ? REPLACE_IF_EXISTS : 0);
    request.nameBytes = static_cast<DWORD>(nameBytes);
    std::memcpy(buffer.data(), &request, sizeof request);
    std::memcpy(buffer.data() + offsetof(RenameRequest, name), to.data(), nameBytes);
    return ::SetFileInformationByHandle(file, RENAME_BY_POSIX_RULES, buffer.data(),
                                        static_cast<DWORD>(buffer.size())) != 0;
}

bool findNames(const std::wstring& pattern, std::vector<std::wstring>& names) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    do
        names.emplace_back(found.cFileName);
    while (::FindNextFileW(search, &found) != 0);
    ::FindClose(search);
    return true;
}

} // namespace

SystemCalls::~SystemCalls() = default;

DWORD SystemCalls::before(const char*) { return 0; }

template <typename Function>
bool SystemCalls::make(const char* call, const Function& function) {
    if (const DWORD error = before(call); error != 0) {
        ::SetLastError(error);
        return false;
    }
    return function();
}

bool SystemCalls::open(const std::wstring& path, DWORD access, Handle& file, DWORD flags) {
    return make("open", [&] {
        file.reset(::CreateFileW(path.c_str(), access, SHARED, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr)); // the flag: folders as well
        return file != INVALID_HANDLE_VALUE;
    });
}

bool SystemCalls::create(const std::wstring& path, DWORD attributes, const Security* security, Handle& file) {
    return make("create", [&] {
        SECURITY_DESCRIPTOR descriptor{};
        ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
        SECURITY_ATTRIBUTES request{sizeof request, &descriptor, FALSE};
        if (security != nullptr) {
            SECURITY_DESCRIPTOR_CONTROL control{};
            DWORD revision = 0;
            ::GetSecurityDescriptorControl(security->descriptor, &control, &revision);
            constexpr SECURITY_DESCRIPTOR_CONTROL kept = SE_DACL_PROTECTED | SE_DACL_AUTO_INHERITED;
            ::SetSecurityDescriptorControl(&descriptor, kept, control & kept);
            ::SetSecurityDescriptorDacl(&descriptor, TRUE, security->list, FALSE);
        }
        file.reset(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                 FILE_SHARE_READ | FILE_SHARE_DELETE,
                                 security != nullptr ? &request : nullptr, CREATE_NEW, attributes, nullptr));
        return file != INVALID_HANDLE_VALUE;
    });
}

bool SystemCalls::getAttributes(const std::wstring& path, DWORD& attributes) {
    return make("getAttributes", [&] {
        attributes = ::GetFileAttributesW(path.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES;
    });
}

bool SystemCalls::getInformation(HANDLE file, BY_HANDLE_FILE_INFORMATION& information) {
    return make("getInformation", [&] { return ::GetFileInformationByHandle(file, &information) != 0; });
}

bool SystemCalls::getFinalPath(HANDLE file, std::wstring& path) {
    return make("getFinalPath", [&] {
        path.resize(32768);
        path.resize(::GetFinalPathNameByHandleW(file, path.data(), static_cast<DWORD>(path.size()),
                                                FILE_NAME_NORMALIZED | VOLUME_NAME_DOS));
        return !path.empty();
    });
}

bool SystemCalls::getSecurity(HANDLE file, Security& security) {
    return make("getSecurity", [&] {
        const DWORD error =
            ::GetSecurityInfo(file, SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
                              &security.owner, nullptr, &security.list, nullptr, &security.descriptor);
        ::SetLastError(error);
        return error == ERROR_SUCCESS;
    });
}

bool SystemCalls::read(HANDLE file, char* bytes, DWORD size, DWORD& count) {
    return make("read", [&] { return ::ReadFile(file, bytes, size, &count, nullptr) != 0; });
}

bool SystemCalls::write(HANDLE file, const char* bytes, DWORD size, DWORD& count) {
    return make("write",
                [&] { return ::WriteFile(file, bytes, std::min(size, longestWrite), &count, nullptr) != 0; });
}

bool SystemCalls::flush(HANDLE file) {
    return make("flush", [&] { return ::FlushFileBuffers(file) != 0; });
}

bool SystemCalls::rename(HANDLE file, const std::wstring& from, const std::wstring& to, bool replaces) {
    return make("rename", [&] {
        if (renameByPosixRules(file, to, replaces))
            return true;
        if (!isUnknown(::GetLastError()))
            return false;
        const DWORD flags = MOVEFILE_WRITE_THROUGH | (replaces ? MOVEFILE_REPLACE_EXISTING : 0);
        return ::MoveFileExW(from.c_str(), to.c_str(), flags) != 0;
    });
}

bool SystemCalls::remove(HANDLE file) {
    return make("remove", [&] {
        DWORD flags = DELETE_FILE | POSIX_DELETE;
        if (::SetFileInformationByHandle(file, REMOVE_BY_POSIX_RULES, &flags, sizeof flags) != 0)
            return true;
        if (!isUnknown(::GetLastError()))
            return false;
        FILE_DISPOSITION_INFO request{TRUE};
        return ::SetFileInformationByHandle(file, FileDispositionInfo, &request, sizeof request) != 0;
    });
}

bool SystemCalls::listNames(const std::wstring& pattern, std::vector<std::wstring>& names) {
    return make("listNames", [&] { return findNames(pattern, names); });
}

} // namespace norel::Desktop::Storage

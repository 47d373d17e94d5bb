#include "Operation.h"

#include "Wording.h"
#include "text/windows/SystemError.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;

bool isDeviceName(const std::wstring& name) {
    std::wstring stem = name.substr(0, name.find(L'.'));
    stem.erase(stem.find_last_not_of(L' ') + 1);
    std::transform(stem.begin(), stem.end(), stem.begin(),
                   [](wchar_t letter) { return static_cast<wchar_t>(std::towupper(letter)); });
    if (stem.size() == 4 && (stem.starts_with(L"COM") || stem.starts_with(L"LPT")))
        return std::wstring_view(L"123456789\u00b9\u00b2\u00b3").find(stem.back()) != std::wstring_view::npos;
    return stem == L"CON" || stem == L"PRN" || stem == L"AUX" || stem == L"NUL" || stem == L"CONIN$" ||
           stem == L"CONOUT$";
}

} // namespace

Operation::Operation(SystemCalls& systemCalls, const std::string& verb, const fs::path& path)
    : system(systemCalls), description(Wording::describeOperation(verb, path)) {}

void Operation::fail(const std::error_code& error, const std::string& detail) const {
    throw std::system_error(error, description + detail);
}

void Operation::failByLastError(const std::string& detail) const {
    fail(Text::makeErrorCode(::GetLastError()), detail);
}

BY_HANDLE_FILE_INFORMATION Operation::getInformation(HANDLE file) const {
    BY_HANDLE_FILE_INFORMATION information{};
    run([&] { return system.getInformation(file, information); });
    return information;
}

void Operation::requireRegularFile(HANDLE file) const {
    if (::GetFileType(file) != FILE_TYPE_DISK)
        fail(std::make_error_code(std::errc::invalid_argument), Wording::NOT_REGULAR);
    if ((getInformation(file).dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        fail(std::make_error_code(std::errc::is_a_directory));
}

void Operation::requireFileName(const fs::path& path) const {
    const std::wstring name = path.filename().native();
    if (name.empty())
        fail(std::make_error_code(std::errc::is_a_directory));
    if (isDeviceName(name) || name.find(L':') != std::wstring::npos)
        fail(std::make_error_code(std::errc::invalid_argument), Wording::NOT_REGULAR);
}

bool isBusy(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_DELETE_PENDING || error == ERROR_USER_MAPPED_FILE;
}

std::wstring toSystemPath(const fs::path& path) {
    std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.ends_with(L'\\') && !full.ends_with(L":\\"))
        full.pop_back();
    if (full.empty() || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\"))
        return full;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

Entry::Entry(const Operation& currentOperation, const std::wstring& systemPath)
    : operation(currentOperation),
      path(systemPath),
      folderPath(systemPath.substr(0, systemPath.find_last_of(L'\\') + 1)) {
    SystemCalls& system = operation.getSystem();
    if (!system.open(folderPath, FILE_LIST_DIRECTORY | FILE_ADD_FILE, folder)) // to flush it
        operation.run([&] { return system.open(folderPath, FILE_READ_ATTRIBUTES, folder); },
                      Wording::NO_FOLDER);
}

void Entry::flushFolder(const std::string& detail) const {
    operation.run(
        [&] {
            if (operation.getSystem().flush(folder))
                return true;
            const DWORD error = ::GetLastError();
            return error == ERROR_ACCESS_DENIED || error == ERROR_INVALID_FUNCTION ||
                   error == ERROR_INVALID_PARAMETER || error == ERROR_INVALID_HANDLE ||
                   error == ERROR_NOT_SUPPORTED;
        },
        detail);
}

} // namespace norel::Desktop::Storage

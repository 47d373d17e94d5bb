#include "text/windows/SystemError.h"

#include <windows.h>

namespace norel::Desktop::Text {
namespace {

constexpr struct {
    DWORD code;
    std::errc error;
} TABLE[] = {
    {ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    {ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    {ERROR_INVALID_DRIVE, std::errc::no_such_file_or_directory},
    {ERROR_BAD_NETPATH, std::errc::no_such_file_or_directory},
    {ERROR_BAD_NET_NAME, std::errc::no_such_file_or_directory},
    {ERROR_DIRECTORY, std::errc::not_a_directory},
    {ERROR_ACCESS_DENIED, std::errc::permission_denied},
    {ERROR_CANNOT_MAKE, std::errc::permission_denied},
    {ERROR_PRIVILEGE_NOT_HELD, std::errc::operation_not_permitted},
    {ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    {ERROR_FILE_EXISTS, std::errc::file_exists},
    {ERROR_ALREADY_EXISTS, std::errc::file_exists},
    {ERROR_DISK_FULL, std::errc::no_space_on_device},
    {ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    {ERROR_FILE_TOO_LARGE, std::errc::file_too_large},
    {ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    {ERROR_INVALID_NAME, std::errc::invalid_argument},
    {ERROR_BAD_PATHNAME, std::errc::invalid_argument},
    {ERROR_INVALID_PARAMETER, std::errc::invalid_argument},
    {ERROR_CANT_RESOLVE_FILENAME, std::errc::too_many_symbolic_link_levels},
    {ERROR_INVALID_HANDLE, std::errc::bad_file_descriptor},
    {ERROR_BROKEN_PIPE, std::errc::broken_pipe},
    {ERROR_NO_DATA, std::errc::broken_pipe},
    {ERROR_NOT_SUPPORTED, std::errc::not_supported},
    {ERROR_INVALID_FUNCTION, std::errc::not_supported},
    {ERROR_NOT_ENOUGH_MEMORY, std::errc::not_enough_memory},
    {ERROR_OUTOFMEMORY, std::errc::not_enough_memory},
    {ERROR_IO_DEVICE, std::errc::io_error},
    {ERROR_CRC, std::errc::io_error},
};

} // namespace

std::error_code makeErrorCode(unsigned long code) {
    for (const auto& [ours, error] : TABLE)
        if (ours == code)
            return std::make_error_code(error);
    return {static_cast<int>(code), std::system_category()};
}

} // namespace norel::Desktop::Text

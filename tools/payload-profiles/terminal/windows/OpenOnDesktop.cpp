#include "terminal/OpenOnDesktop.h"

#include <stdexcept>
#include <windows.h>

#include <shellapi.h>

namespace norel::Desktop::PayloadProfiles {

void openOnDesktop(const std::filesystem::path& file) {
    const std::filesystem::path path = std::filesystem::absolute(file);
    constexpr INT_PTR lastError = 32; // by the function's own rules
    const HINSTANCE result = ::ShellExecuteW(nullptr, L"open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(result) <= lastError)
        throw std::runtime_error("the desktop has no program for it");
}

} // namespace norel::Desktop::PayloadProfiles

#include "terminal/Terminal.h"

#include "text/windows/SystemError.h"
#include "text/windows/Utf16.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <system_error>
#include <windows.h>

namespace norel::Desktop::PayloadProfiles::Terminal {
namespace {

[[noreturn]] void fail(DWORD error) { throw std::system_error(Text::makeErrorCode(error)); }

bool isConsole(HANDLE stream) {
    DWORD mode = 0;
    return ::GetConsoleMode(stream, &mode) != 0;
}

/// Whether the stream is a console that understands the control sequences for colours and for clearing a
/// line.
bool takesControlSequences(DWORD stream) {
    DWORD mode = 0;
    const HANDLE handle = ::GetStdHandle(stream);
    return ::GetConsoleMode(handle, &mode) != 0 &&
           ::SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

std::optional<std::size_t> getWidth(DWORD stream) {
    CONSOLE_SCREEN_BUFFER_INFO console{};
    if (::GetConsoleScreenBufferInfo(::GetStdHandle(stream), &console) == 0)
        return std::nullopt;
    return static_cast<std::size_t>(console.srWindow.Right - console.srWindow.Left + 1);
}

/// The length of a beginning of the text, of at most `longest` bytes, that ends between two characters.
std::size_t findPiece(std::string_view text, std::size_t longest) {
    std::size_t size = std::min(text.size(), longest);
    while (size < text.size() && size > 1 && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U)
        --size;
    return size;
}

/// Writes a beginning of the text and removes it; returns an error of the system, or 0. A console takes
/// characters whatever its code page is, everything else bytes.
DWORD writePiece(HANDLE stream, std::string_view& text) {
    constexpr std::size_t longest = 16384; // a console takes no more than 64 KiB
    DWORD written = 0;
    std::size_t size = findPiece(text, longest);
    if (isConsole(stream)) {
        const std::wstring wide = Text::toUtf16(text.substr(0, size));
        if (::WriteConsoleW(stream, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) == 0)
            return ::GetLastError();
    } else {
        if (::WriteFile(stream, text.data(), static_cast<DWORD>(size), &written, nullptr) == 0)
            return ::GetLastError();
        size = written;
    }
    text.remove_prefix(size);
    return ERROR_SUCCESS;
}

/// What the user types, until a line that begins with Ctrl+Z.
std::string readConsole(HANDLE stream) {
    constexpr wchar_t endOfInput = 0x1a;
    std::wstring text;
    std::array<wchar_t, 4096> piece;
    DWORD count = 0;
    do {
        if (::ReadConsoleW(stream, piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) == 0)
            fail(::GetLastError());
        text.append(piece.data(), count);
    } while (count > 0 && piece.front() != endOfInput);
    return Text::fromUtf16(std::wstring_view(text).substr(0, text.find(endOfInput)));
}

} // namespace

void prepareStandardStreams() {} // no signals, and a closed stream stays closed

std::optional<std::size_t> getOutputWidth() { return getWidth(STD_OUTPUT_HANDLE); }

bool takesColour() {
    const wchar_t* unwanted = ::_wgetenv(L"NO_COLOR");
    return (unwanted == nullptr || *unwanted == L'\0') && takesControlSequences(STD_OUTPUT_HANDLE);
}

std::optional<std::size_t> getMessageWidth() {
    return takesControlSequences(STD_ERROR_HANDLE) ? getWidth(STD_ERROR_HANDLE) : std::nullopt;
}

void writeOutput(std::string_view text) {
    while (!text.empty())
        if (const DWORD error = writePiece(::GetStdHandle(STD_OUTPUT_HANDLE), text); error != ERROR_SUCCESS)
            fail(error);
}

void closeOutput() {
    const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
    if (!isConsole(output) && ::CloseHandle(output) == 0)
        fail(::GetLastError());
}

void writeMessage(std::string_view text) noexcept {
    try {
        while (!text.empty() && writePiece(::GetStdHandle(STD_ERROR_HANDLE), text) == ERROR_SUCCESS) {
        }
    } catch (const std::bad_alloc&) { // a console only: other streams get the bytes as they are
    }
}

std::string readInput() {
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    if (isConsole(input))
        return readConsole(input);
    std::string text;
    std::array<char, 65536> piece;
    for (;;) {
        DWORD count = 0;
        if (::ReadFile(input, piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) == 0 &&
            ::GetLastError() != ERROR_BROKEN_PIPE) // the writer has closed the pipe
            fail(::GetLastError());
        if (count == 0)
            return text;
        text.append(piece.data(), count);
    }
}

} // namespace norel::Desktop::PayloadProfiles::Terminal

#include "terminal/Terminal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

namespace norel::Desktop::PayloadProfiles::Terminal {
namespace {

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

std::string_view getVariable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// The width in columns of the terminal behind a stream; empty when it is not a terminal.
std::optional<std::size_t> getWidth(int stream) {
    if (::isatty(stream) == 0)
        return std::nullopt;
    constexpr std::size_t defaultWidth = 80;
    winsize size{};
    const bool isKnown = ::ioctl(stream, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : defaultWidth;
}

} // namespace

void prepareStandardStreams() {
    for (const int signal : {SIGPIPE, SIGXFSZ})
        std::signal(signal, SIG_IGN);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF) {
            // Opened for the other direction, so that using it fails as using a closed stream does.
            [[maybe_unused]] const int filler =
                ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
}

std::optional<std::size_t> getOutputWidth() { return getWidth(STDOUT_FILENO); }

bool takesColour() {
    return ::isatty(STDOUT_FILENO) != 0 && getVariable("NO_COLOR").empty() && getVariable("TERM") != "dumb";
}

std::optional<std::size_t> getMessageWidth() { return getWidth(STDERR_FILENO); }

void writeOutput(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            fail();
    }
}

void closeOutput() {
    if (::close(STDOUT_FILENO) != 0 && errno != EINTR)
        fail();
}

void writeMessage(std::string_view text) noexcept {
    while (!text.empty()) {
        const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            return;
    }
}

std::string readInput() {
    std::string text;
    std::array<char, 65536> piece;
    for (;;) {
        const ssize_t size = ::read(STDIN_FILENO, piece.data(), piece.size());
        if (size == 0)
            return text;
        if (size > 0)
            text.append(piece.data(), static_cast<std::size_t>(size));
        else if (errno != EINTR)
            fail();
    }
}

} // namespace norel::Desktop::PayloadProfiles::Terminal

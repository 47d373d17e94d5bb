#include "terminal/OpenOnDesktop.h"

#include <array>
#include <cerrno>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

extern "C" char** environ; // POSIX leaves its declaration to the program

namespace norel::Desktop::PayloadProfiles {
namespace {

#ifdef __APPLE__
constexpr const char* OPENER = "open";
#else
constexpr const char* OPENER = "xdg-open";
#endif

int waitFor(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0)
        if (errno != EINTR)
            throw std::system_error(errno, std::generic_category(), OPENER);
    return status;
}

} // namespace

void openOnDesktop(const std::filesystem::path& file) {
    std::string opener = OPENER;
    std::string path = std::filesystem::absolute(file).string(); // never taken for an option
    const std::array<char*, 3> arguments{opener.data(), path.data(), nullptr};
    pid_t process = 0;
    const int error = ::posix_spawnp(&process, OPENER, nullptr, nullptr, arguments.data(), environ);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), opener);
    const int status = waitFor(process);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(opener + " failed");
}

} // namespace norel::Desktop::PayloadProfiles

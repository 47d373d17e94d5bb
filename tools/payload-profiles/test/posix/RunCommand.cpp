#include "RunCommand.h"

#include <cstdlib>
#include <sys/wait.h>

namespace norel::Desktop::PayloadProfiles::Test {

int runCommand(const std::filesystem::path& folder, const std::string& command, const std::string& before,
               const std::filesystem::path& output, const std::filesystem::path& messages) {
    const std::string line = "cd '" + folder.string() + "' && exec >'" + output.string() + "' 2>'" +
                             messages.string() + "'; unset NO_COLOR PAYLOAD_PROFILES_KEY; " + before +
                             " '" PAYLOAD_PROFILES "' " + command;
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace norel::Desktop::PayloadProfiles::Test

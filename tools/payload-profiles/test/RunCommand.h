#pragma once

#include <filesystem>
#include <string>

namespace norel::Desktop::PayloadProfiles::Test {

/// Runs "BEFORE payload-profiles COMMAND" in the folder and writes its standard output and standard error to
/// the files; the result is its exit code. BEFORE and COMMAND are in the language of the shell; elsewhere
/// than on POSIX systems only assignments of variables in BEFORE, and words, quotation marks and "< FILE" in
/// COMMAND.
int runCommand(const std::filesystem::path& folder, const std::string& command, const std::string& before,
               const std::filesystem::path& output, const std::filesystem::path& messages);

} // namespace norel::Desktop::PayloadProfiles::Test

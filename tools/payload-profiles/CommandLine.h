#pragma once

namespace norel::Desktop::PayloadProfiles {

/// Parses the command line and runs its command; the result is the process's exit code.
int run(int argumentCount, const char* const* arguments);

} // namespace norel::Desktop::PayloadProfiles

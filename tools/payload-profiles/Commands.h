#pragma once

#include "Session.h"

#include <string>

namespace CLI {
class App;
}

namespace norel::Desktop::PayloadProfiles {

/// Adds a command to the application. `examples` are command lines without the application's name, a line
/// each.
CLI::App& addCommand(CLI::App& application, const std::string& name, const std::string& description,
                     const std::string& examples);

// Each adds one command, which runs, as soon as the command line is parsed, in `session`.

void addAddCommand(CLI::App& application, Session& session);
void addDeleteCommand(CLI::App& application, Session& session);
void addFactoryCommand(CLI::App& application, Session& session);
void addFetchCommand(CLI::App& application, Session& session);
void addListCommand(CLI::App& application, Session& session);
void addMergeCommand(CLI::App& application, Session& session);
void addShowCommand(CLI::App& application, Session& session);
void addUpgradeCommand(CLI::App& application, Session& session);
void addValidateCommand(CLI::App& application, Session& session);

/// Parses the command line and runs its command; the result is the process's exit code.
int run(int argumentCount, const char* const* arguments);

} // namespace norel::Desktop::PayloadProfiles

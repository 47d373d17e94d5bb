#pragma once

#include "commands/Context.h"

#include <string>

namespace CLI {
class App;
}

namespace norel::Desktop::PayloadProfiles {

/// Adds a command to the application. `examples` are command lines without the application's name, a line
/// each.
CLI::App& addCommand(CLI::App& application, const std::string& name, const std::string& description,
                     const std::string& examples);

// Each adds one command, which runs, as soon as the command line is parsed, in `context`.

void addAddCommand(CLI::App& application, Context& context);
void addDeleteCommand(CLI::App& application, Context& context);
void addFactoryCommand(CLI::App& application, Context& context);
void addFetchCommand(CLI::App& application, Context& context);
void addListCommand(CLI::App& application, Context& context);
void addMergeCommand(CLI::App& application, Context& context);
void addShowCommand(CLI::App& application, Context& context);
void addUpgradeCommand(CLI::App& application, Context& context);
void addValidateCommand(CLI::App& application, Context& context);

/// Parses the command line and runs its command; the result is the process's exit code.
int run(int argumentCount, const char* const* arguments);

} // namespace norel::Desktop::PayloadProfiles

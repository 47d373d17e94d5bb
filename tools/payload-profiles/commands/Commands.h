#pragma once

#include "commands/Context.h"

namespace CLI {
class App;
}

namespace norel::Desktop::PayloadProfiles {

// Each function adds one command, which runs in `context` when the command line is parsed.

void addAddCommand(CLI::App& application, Context& context);
void addDeleteCommand(CLI::App& application, Context& context);
void addFactoryCommand(CLI::App& application, Context& context);
void addFetchCommand(CLI::App& application, Context& context);
void addListCommand(CLI::App& application, Context& context);
void addMergeCommand(CLI::App& application, Context& context);
void addShowCommand(CLI::App& application, Context& context);
void addUpgradeCommand(CLI::App& application, Context& context);
void addValidateCommand(CLI::App& application, Context& context);

} // namespace norel::Desktop::PayloadProfiles

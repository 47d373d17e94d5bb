#pragma once

#include "commands/Context.h"

namespace CLI {
class App;
}

namespace norel::Desktop::PayloadProfiles {

// Each function adds one command, which runs in `context` when the command line is parsed.

void addAddCommand(CLI::App& application, Context& context);
void addCopyCommand(CLI::App& application, Context& context);
void addDeleteCommand(CLI::App& application, Context& context);
void addDiffCommand(CLI::App& application, Context& context);
void addFactoryCommand(CLI::App& application, Context& context);
void addFetchCommand(CLI::App& application, Context& context);
void addHelpCommand(CLI::App& application, Context& context);
void addListCommand(CLI::App& application, Context& context);
void addManualCommand(CLI::App& application, Context& context);
void addMergeCommand(CLI::App& application, Context& context);
void addRenameCommand(CLI::App& application, Context& context);
void addReportCommand(CLI::App& application, Context& context);
void addResetCommand(CLI::App& application, Context& context);
void addSchemaCommand(CLI::App& application, Context& context);
void addSetCommand(CLI::App& application, Context& context);
void addShowCommand(CLI::App& application, Context& context);
void addUpgradeCommand(CLI::App& application, Context& context);
void addValidateCommand(CLI::App& application, Context& context);

} // namespace norel::Desktop::PayloadProfiles

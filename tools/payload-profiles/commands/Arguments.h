#pragma once

#include "commands/Command.h"
#include "documents/ProfileFile.h"
#include "documents/Source.h"

namespace norel::Desktop::PayloadProfiles {

/// Adds the argument SOURCE and the option --key-file to a command.
void addSource(Command command, Source& source);

/// Adds the option --key-file alone.
void addKeyFile(Command command, Source& source);

/// Adds the options of a command that writes a file: --dry-run, --backup and --wait.
void addWriteOptions(Command command, ChangeOptions& options);

/// Adds the same and --drop-unknown, for a command that reads the file and writes it again.
void addChangeOptions(Command command, ChangeOptions& options);

} // namespace norel::Desktop::PayloadProfiles

#include "commands/Arguments.h"

namespace norel::Desktop::PayloadProfiles {

void addSource(Command command, Source& source) {
    command.addArgument("SOURCE", source.location,
                        "A file, \"factory\" or a base address (http://, https://)");
    addKeyFile(command, source);
}

void addKeyFile(Command command, Source& source) {
    command.addOption("--key-file", "KEY-FILE", source.keyFile,
                      "File that contains the key of the web service (default: the environment variable "
                      "PAYLOAD_PROFILES_KEY)");
}

void addWriteOptions(Command command, ChangeOptions& options) {
    command.addFlag("--dry-run", options.dryRun, "Print what would be done, and change nothing");
    command.addFlag("--backup", options.backup, "Keep the previous text as FILE.bak, replacing an older one");
    command.addOption("--wait", "SECONDS", options.waitSeconds,
                      "How long to wait while another process changes the file (default: " +
                          std::to_string(options.waitSeconds) + ")");
}

void addChangeOptions(Command command, ChangeOptions& options) {
    addWriteOptions(command, options);
    command.addFlag("--drop-unknown", options.dropUnknown,
                    "Write even if that drops members that are not known, such as misspelt ones");
}

} // namespace norel::Desktop::PayloadProfiles

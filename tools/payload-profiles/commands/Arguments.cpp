#include "commands/Arguments.h"

#include <CLI/CLI.hpp>

#include <sstream>

namespace norel::Desktop::PayloadProfiles {

CLI::App& addCommand(CLI::App& application, const std::string& name, const std::string& description,
                     const std::string& examples) {
    CLI::App& command = *application.add_subcommand(name, description);
    std::string footer = "Examples:";
    std::istringstream lines(examples);
    for (std::string line; std::getline(lines, line);)
        footer += "\n  payload-profiles " + line;
    command.footer(footer);
    return command;
}

void addSource(CLI::App& command, Source& source) {
    command
        .add_option("SOURCE", source.location, "A file, \"factory\" or a base address (http://, https://)")
        ->required();
    addKeyFile(command, source);
}

void addKeyFile(CLI::App& command, Source& source) {
    command
        .add_option("--key-file", source.keyFile,
                    "File that contains the key of the web service (default: the environment variable "
                    "PAYLOAD_PROFILES_KEY)")
        ->option_text("KEY-FILE");
}

void addWait(CLI::App& command, LockWait& wait) {
    command
        .add_option("--wait", wait.seconds,
                    "How long to wait while another process changes the file (default: " +
                        std::to_string(wait.seconds) + ")")
        ->option_text("SECONDS");
}

} // namespace norel::Desktop::PayloadProfiles

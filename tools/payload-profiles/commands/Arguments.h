#pragma once

#include "documents/Source.h"

#include <chrono>
#include <string>

namespace CLI {
class App;
}

namespace norel::Desktop::PayloadProfiles {

/// Adds a command to the application. `examples` are command lines without the application's name, one per
/// line.
CLI::App& addCommand(CLI::App& application, const std::string& name, const std::string& description,
                     const std::string& examples);

/// Adds the argument SOURCE and the option --key-file to a command.
void addSource(CLI::App& command, Source& source);

/// Adds the option --key-file alone.
void addKeyFile(CLI::App& command, Source& source);

/// How long a command waits for the lock of the file that it changes.
struct LockWait {
    unsigned int seconds = 10;

    operator std::chrono::seconds() const { return std::chrono::seconds(seconds); }
};

/// Adds the option --wait.
void addWait(CLI::App& command, LockWait& wait);

} // namespace norel::Desktop::PayloadProfiles

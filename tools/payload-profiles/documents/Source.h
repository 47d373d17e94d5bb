#pragma once

#include "commands/Context.h"

#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace norel::Desktop::PayloadProfiles {

/// Where profiles are read from, as the command line names it.
struct Source {
    std::string location; ///< a file, "factory" or a base address
    std::string keyFile;  ///< holds the key of the web service; none when empty

    bool isAddress() const;
    bool isBuiltInOrAddress() const;

    /// The name for messages: the location without what may be the user and password of an address, however
    /// mistyped.
    std::string getName() const;
};

/// Adds the argument SOURCE and the option --key-file to a command.
void addSource(CLI::App& command, Source& source);

/// Adds the option --key-file alone.
void addKeyFile(CLI::App& command, Source& source);

/// The profiles of a source. Throws Failure.
ProfileList readSource(const Context& context, const Source& source);

} // namespace norel::Desktop::PayloadProfiles

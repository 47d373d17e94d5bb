#pragma once

#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// A positional argument or an option of a command.
struct ArgumentSyntax {
    std::vector<std::string> names; ///< "FILE", or "-h" and "--help"
    std::string value;              ///< the name of an option's value; empty for a flag
    std::string description;
    bool isRequired = false;
    bool takesSeveral = false; ///< values

    /// "FILE", "-h, --help" or "--wait SECONDS"
    std::string getLabel() const {
        std::string label;
        for (const std::string& name : names)
            label += (label.empty() ? "" : ", ") + name;
        return value.empty() ? label : label + ' ' + value;
    }
};

/// What the command line of the application, or of one of its commands, may contain.
struct CommandSyntax {
    std::string name; ///< "payload-profiles" or "payload-profiles add"
    std::string description;
    std::string notes;                 ///< paragraphs
    std::vector<std::string> examples; ///< command lines
    std::vector<ArgumentSyntax> positionals;
    std::vector<ArgumentSyntax> options;
    std::vector<CommandSyntax> commands;

    /// The name without that of the application.
    std::string getShortName() const { return name.substr(name.rfind(' ') + 1); }

    /// "payload-profiles add [OPTIONS] FILE PROFILE.json"
    std::string getUsage() const {
        std::string usage = name + (options.empty() ? "" : " [OPTIONS]");
        for (const ArgumentSyntax& positional : positionals) {
            const std::string text = positional.names.front() + (positional.takesSeveral ? "..." : "");
            usage += positional.isRequired ? ' ' + text : " [" + text + ']';
        }
        return commands.empty() ? usage : usage + " COMMAND";
    }
};

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "reports/CommandSyntax.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace norel::Desktop::PayloadProfiles {

/// Declares the arguments of a command; a reference to the parser's command. The variables that the arguments
/// are stored in must live as long as the parser.
class Command {
public:
    /// Why a value is invalid; empty when it is valid.
    using Check = std::string (*)(const std::string& value);

    Command(CLI::App& parserOfCommand) : parser(parserOfCommand) {}

    operator CLI::App&() const { return parser; }

    void addArgument(const std::string& name, std::string& value, const std::string& description,
                     Check check = nullptr) const;
    /// May be left out.
    void addOptionalArgument(const std::string& name, std::string& value,
                             const std::string& description) const;
    /// At least one value.
    void addArguments(const std::string& name, std::vector<std::string>& values,
                      const std::string& description, Check check = nullptr) const;

    /// Any number of values, also none.
    void addOptionalArguments(const std::string& name, std::vector<std::string>& values,
                              const std::string& description, Check check = nullptr) const;

    /// An option with a value. `valueName` is what the help calls the value.
    void addOption(const std::string& name, const std::string& valueName, std::string& value,
                   const std::string& description, Check check = nullptr) const;
    void addOption(const std::string& name, const std::string& valueName, std::optional<std::string>& value,
                   const std::string& description) const;
    void addOption(const std::string& name, const std::string& valueName, unsigned int& value,
                   const std::string& description) const;
    /// A number in a range, both inclusive.
    void addOption(const std::string& name, const std::string& valueName, unsigned int& value,
                   std::pair<unsigned int, unsigned int> range, const std::string& description) const;

    void addRequiredOption(const std::string& name, const std::string& valueName, std::string& value,
                           const std::string& description) const;

    void addFlag(const std::string& name, bool& value, const std::string& description) const;

    /// Forbids using both options in one command line.
    void exclude(const std::string& option, const std::string& otherOption) const;

    /// Paragraphs that the help shows after the examples.
    void addNotes(const std::string& notes) const;

    /// Leaves the command out of help and completion.
    void hide() const;

    /// The function that the command runs. A Failure of it is shown to the user.
    void run(std::function<void()> action) const;

private:
    CLI::App& parser;
};

/// Adds a command to the application. `examples` are command lines without the application's name, one per
/// line; an indented line continues the previous one.
Command addCommand(CLI::App& application, const std::string& name, const std::string& description,
                   const std::string& examples);

/// The syntax of the application with all of its visible commands, or of a command.
CommandSyntax describe(const CLI::App& parser);

/// A command line that cannot be parsed. `command` is what its help is about: the application or a command.
struct CommandLineError : std::runtime_error {
    CommandLineError(const std::string& message, const std::string& nameOfCommand)
        : std::runtime_error(message), command(nameOfCommand) {}

    std::string command;
};

/// Parses the command line of the application.
class CommandParser {
public:
    /// `syntax` has the name, the description and the notes of the application.
    CommandParser(const CommandSyntax& syntax, const std::string& version);
    CommandParser(const CommandParser&) = delete;
    CommandParser& operator=(const CommandParser&) = delete;
    ~CommandParser();

    /// To which the commands are added.
    CLI::App& getApplication() const { return *application; }

    /// Runs the command of the command line. The result is the help or the version, if that was asked for.
    /// Throws CommandLineError and what the command throws.
    std::string parse(int argumentCount, const char* const* arguments) const;

private:
    std::unique_ptr<CLI::App> application;
};

} // namespace norel::Desktop::PayloadProfiles

#include "commands/Command.h"

#include "reports/HelpReport.h"

#include <CLI/CLI.hpp>

#include <iterator>
#include <sstream>

namespace norel::Desktop::PayloadProfiles {
namespace {

ArgumentSyntax describeArgument(const CLI::Option& option) {
    ArgumentSyntax syntax;
    if (option.get_positional())
        syntax.names.push_back(option.get_name(true, false));
    for (const std::string& name : option.get_snames())
        syntax.names.push_back('-' + name);
    for (const std::string& name : option.get_lnames())
        syntax.names.push_back("--" + name);
    syntax.value = option.get_option_text();
    syntax.description = option.get_description();
    syntax.isRequired = option.get_required();
    syntax.takesSeveral = option.get_expected_max() > 1;
    return syntax;
}

std::string nameOf(const CLI::App& parser) {
    return (parser.get_parent() == nullptr ? "" : nameOf(*parser.get_parent()) + ' ') + parser.get_name();
}

class HelpFormatter : public CLI::FormatterBase {
public:
    std::string make_help(const CLI::App* parser, std::string /*name*/,
                          CLI::AppFormatMode /*mode*/) const override {
        return makeHelp(describe(*parser));
    }
};

/// What is wrong with the command line. The parser reports neither unknown commands nor unknown options as
/// such.
std::string reasonOf(const CLI::App& application, const CLI::App& command, const CLI::ParseError& error) {
    for (const std::string& word : application.remaining(true))
        if (word.size() > 1 && word.starts_with('-') && word != "--")
            return describeUnknownOption(describe(command), word);
    const std::vector<std::string> rest = application.remaining();
    const bool isUnknown = &command == &application && !rest.empty();
    return isUnknown ? describeUnknownCommand(describe(application), rest.front()) : error.what();
}

void addCheck(CLI::Option& option, Command::Check check) {
    if (check != nullptr)
        option.check(check);
}

} // namespace

void Command::addArgument(const std::string& name, std::string& value, const std::string& description,
                          Check check) const {
    addCheck(*parser.add_option(name, value, description)->required(), check);
}

void Command::addOptionalArgument(const std::string& name, std::string& value,
                                  const std::string& description) const {
    parser.add_option(name, value, description);
}

void Command::addArguments(const std::string& name, std::vector<std::string>& values,
                           const std::string& description, Check check) const {
    addCheck(*parser.add_option(name, values, description)->required(), check);
}

void Command::addOptionalArguments(const std::string& name, std::vector<std::string>& values,
                                   const std::string& description, Check check) const {
    addCheck(*parser.add_option(name, values, description), check);
}

void Command::addOption(const std::string& name, const std::string& valueName, std::string& value,
                        const std::string& description, Check check) const {
    addCheck(*parser.add_option(name, value, description)->option_text(valueName), check);
}

void Command::addOption(const std::string& name, const std::string& valueName,
                        std::optional<std::string>& value, const std::string& description) const {
    parser
        .add_option_function<std::string>(
            name, [&value](const std::string& text) { value = text; }, description)
        ->option_text(valueName);
}

void Command::addOption(const std::string& name, const std::string& valueName, unsigned int& value,
                        const std::string& description) const {
    parser.add_option(name, value, description)->option_text(valueName);
}

void Command::addOption(const std::string& name, const std::string& valueName, unsigned int& value,
                        std::pair<unsigned int, unsigned int> range, const std::string& description) const {
    parser.add_option(name, value, description)
        ->check(CLI::Range(range.first, range.second))
        ->option_text(valueName);
}

void Command::addRequiredOption(const std::string& name, const std::string& valueName, std::string& value,
                                const std::string& description) const {
    parser.add_option(name, value, description)->required()->option_text(valueName);
}

void Command::addFlag(const std::string& name, bool& value, const std::string& description) const {
    parser.add_flag(name, value, description);
}

void Command::exclude(const std::string& option, const std::string& otherOption) const {
    parser.get_option(option)->excludes(parser.get_option(otherOption));
}

void Command::addNotes(const std::string& notes) const { parser.footer(parser.get_footer() + '\n' + notes); }

void Command::hide() const { parser.group(""); }

void Command::run(std::function<void()> action) const { parser.callback(std::move(action)); }

Command addCommand(CLI::App& application, const std::string& name, const std::string& description,
                   const std::string& examples) {
    CLI::App& parser = *application.add_subcommand(name, description);
    std::string commandLines;
    std::istringstream lines(examples);
    for (std::string line; std::getline(lines, line);)
        commandLines += (line.starts_with(' ') ? "" : application.get_name() + ' ') + line + '\n';
    parser.footer(commandLines);
    return parser;
}

CommandSyntax describe(const CLI::App& parser) {
    CommandSyntax syntax;
    syntax.name = nameOf(parser);
    syntax.description = parser.get_description();
    std::istringstream footer(parser.get_footer());
    if (parser.get_parent() != nullptr) // a command, whose footer begins with its examples
        for (std::string line; std::getline(footer, line) && !line.empty();)
            syntax.examples.push_back(line);
    syntax.notes.assign(std::istreambuf_iterator<char>(footer), {});
    for (const CLI::Option* option : parser.get_options())
        if (!option->get_group().empty())
            (option->get_positional() ? syntax.positionals : syntax.options)
                .push_back(describeArgument(*option));
    for (const CLI::App* command : parser.get_subcommands({}))
        if (!command->get_group().empty())
            syntax.commands.push_back(describe(*command));
    return syntax;
}

CommandParser::CommandParser(const CommandSyntax& syntax, const std::string& version)
    : application(std::make_unique<CLI::App>(syntax.description, syntax.name)) {
    application->footer(syntax.notes);
    application->formatter(std::make_shared<HelpFormatter>());
    application->set_version_flag("--version", version, "Print the version and exit");
    application->set_help_flag("-h,--help", "Print this help and exit");
    application->require_subcommand(1);
}

CommandParser::~CommandParser() = default;

std::string CommandParser::parse(int argumentCount, const char* const* arguments) const {
    try {
        application->parse(argumentCount, arguments);
        return {};
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) { // asked for help or version
            std::ostringstream text;
            application->exit(error, text, text);
            return text.str();
        }
        const std::vector<CLI::App*> chosen = application->get_subcommands();
        const CLI::App& command = chosen.empty() ? *application : *chosen.front();
        throw CommandLineError(reasonOf(*application, command, error), nameOf(command));
    }
}

} // namespace norel::Desktop::PayloadProfiles

#include "commands/Commands.h"
#include "documents/Source.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

#include <sstream>

namespace norel::Desktop::PayloadProfiles {
namespace {

constexpr const char* DESCRIPTION = "Lists, shows, checks and changes the payload profiles of a file.";

constexpr const char* NOTES =
    "SOURCE is a file, \"factory\" for the built-in profiles, or the base address of the processing web\n"
    "service (http://..., https://...); \"./factory\" is a file of that name. The key of the web service is\n"
    "taken from --key-file or the environment variable PAYLOAD_PROFILES_KEY.\n"
    "\n"
    "Exit codes: 0 success, 1 validate found something, 2 trouble.\n"
    "\n"
    "payload-profiles COMMAND --help tells more and gives examples.";

class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() {
        for (const char* type : {"TEXT", "UINT"})
            label(type, "");
        label("REQUIRED", "");
        column_width(32);
    }
};

void describe(CLI::App& application) {
    application.description(DESCRIPTION);
    application.name("payload-profiles");
    application.footer(NOTES);
    application.formatter(std::make_shared<HelpFormatter>());
    application.set_version_flag("--version", "payload-profiles " PAYLOAD_PROFILES_VERSION,
                                 "Print the version and exit");
    application.set_help_flag("-h,--help", "Print this help and exit");
    application.require_subcommand(1);
}

/// What is wrong with the command line; the parser itself takes an unknown command for none.
std::string reasonOf(const CLI::App& application, const CLI::ParseError& error) {
    const std::vector<std::string> rest = application.remaining();
    if (!application.get_subcommands().empty() || rest.empty() || rest.front().starts_with('-'))
        return error.what();
    const Source word{rest.front(), {}}; // the command may be what was forgotten
    return "there is no command " + inQuotes(word.getName());
}

/// Help and version for the asking, or what is wrong with the command line.
int answer(const CLI::App& application, const CLI::ParseError& error, Console& console) {
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        application.exit(error, text, text);
        console.print(text.str());
        return static_cast<int>(ExitCode::Success);
    }
    std::string command = "payload-profiles";
    for (const CLI::App* chosen : application.get_subcommands())
        command += ' ' + chosen->get_name();
    console.showMessage("", reasonOf(application, error));
    console.showMessage("", "\"" + command + " --help\" tells how it is used");
    return static_cast<int>(ExitCode::Trouble);
}

int execute(int argumentCount, const char* const* arguments, Context& context) {
    CLI::App application;
    describe(application);
    for (const auto add :
         {addListCommand, addShowCommand, addAddCommand, addDeleteCommand, addValidateCommand,
          addFactoryCommand, addMergeCommand, addUpgradeCommand, addFetchCommand})
        add(application, context);
    try {
        application.parse(argumentCount, arguments);
        return static_cast<int>(context.exitCode);
    } catch (const CLI::ParseError& error) {
        return answer(application, error, context.console);
    } catch (const Failure& failure) {
        context.console.discard();
        context.console.showMessage(failure.subject, failure.what());
    }
    return static_cast<int>(ExitCode::Trouble);
}

} // namespace

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

int run(int argumentCount, const char* const* arguments) {
    Terminal::prepareStandardStreams();
    Context context;
    try {
        const int exitCode = execute(argumentCount, arguments, context);
        context.console.finish();
        return exitCode;
    } catch (const Console::OutputFailure& failure) {
        context.console.discard();
        if (failure.code() != std::errc::broken_pipe) // the reader has seen enough
            context.console.showMessage("standard output", failure.code().message());
    } catch (const std::exception& error) {
        context.console.discard();
        context.console.showMessage("", error.what());
    }
    return static_cast<int>(ExitCode::Trouble);
}

} // namespace norel::Desktop::PayloadProfiles

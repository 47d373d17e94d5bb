#include "CommandLine.h"

#include "commands/Command.h"
#include "commands/Commands.h"
#include "commands/Completion.h"
#include "documents/Failure.h"
#include "documents/Source.h"
#include "reports/HelpReport.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <sstream>
#include <string_view>

namespace norel::Desktop::PayloadProfiles {
namespace {

constexpr const char* DESCRIPTION = "Lists, shows, checks and changes the payload profiles in a file.";

constexpr const char* NOTES =
    "SOURCE is a file, \"factory\" for the built-in profiles, or the base address of the processing web "
    "service (http://..., https://...). Write \"./factory\" for a file of that name. The key of the web "
    "service is read from --key-file or from the environment variable PAYLOAD_PROFILES_KEY.\n"
    "\n"
    "Exit codes: 0 success, 1 validate found an invalid file or diff a difference, 2 error.\n"
    "\n"
    "See payload-profiles COMMAND --help for details and examples.";

class HelpFormatter : public CLI::FormatterBase {
public:
    std::string make_help(const CLI::App* parser, std::string /*name*/,
                          CLI::AppFormatMode /*mode*/) const override {
        return makeHelp(describe(*parser));
    }
};

void configure(CLI::App& application) {
    application.description(DESCRIPTION);
    application.name("payload-profiles");
    application.footer(NOTES);
    application.formatter(std::make_shared<HelpFormatter>());
    application.set_version_flag("--version", "payload-profiles " PAYLOAD_PROFILES_VERSION,
                                 "Print the version and exit");
    application.set_help_flag("-h,--help", "Print this help and exit");
    application.require_subcommand(1);
}

/// Registers every argument that may contain the password of an address, whichever command or option it is
/// given to by mistake.
void concealPasswords(Console& console, int argumentCount, const char* const* arguments) {
    for (int i = 1; i < argumentCount; ++i) {
        const std::string argument = arguments[i];
        const bool isOption = argument.starts_with("--");
        const Source value{isOption ? argument.substr(argument.find('=') + 1) : argument, {}};
        console.conceal(value.location, value.getName());
        const Source fileName{std::filesystem::path(value.location).filename().string(), {}};
        console.conceal(fileName.location, fileName.getName()); // a lock file's name may contain it
    }
}

/// What is wrong with the command line. The parser reports neither unknown commands nor unknown options as
/// such.
std::string reasonOf(const CLI::App& application, const CLI::ParseError& error) {
    const std::vector<CLI::App*> chosen = application.get_subcommands();
    for (const std::string& word : application.remaining(true))
        if (word.size() > 1 && word.starts_with('-') && word != "--")
            return describeUnknownOption(describe(chosen.empty() ? application : *chosen.front()), word);
    const std::vector<std::string> rest = application.remaining();
    return chosen.empty() && !rest.empty() ? describeUnknownCommand(describe(application), rest.front())
                                           : error.what();
}

/// Prints the help or the version that was asked for, or what is wrong with the command line.
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
    console.showMessage("", "see " + command + " --help");
    return static_cast<int>(ExitCode::Error);
}

int execute(int argumentCount, const char* const* arguments, Context& context) {
    CLI::App application;
    configure(application);
    for (const auto add :
         {addListCommand, addShowCommand, addReportCommand, addDiffCommand, addValidateCommand, addSetCommand,
          addResetCommand, addRenameCommand, addAddCommand, addCopyCommand, addDeleteCommand, addMergeCommand,
          addUpgradeCommand, addFactoryCommand, addFetchCommand, addSchemaCommand, addHelpCommand,
          addManualCommand})
        add(application, context);
    if (argumentCount <= 1) {
        context.console.print(makeShortHelp(describe(application)));
        return static_cast<int>(ExitCode::Success);
    }
    if (std::string_view(arguments[1]) == "complete") { // not parsed: what follows is not complete
        context.console.print(completeWords(describe(application), {arguments + 2, arguments + argumentCount},
                                            context.documents));
        return static_cast<int>(ExitCode::Success);
    }
    try {
        application.parse(argumentCount, arguments);
        return static_cast<int>(context.exitCode);
    } catch (const CLI::ParseError& error) {
        return answer(application, error, context.console);
    } catch (const Failure& failure) {
        context.console.discard();
        context.console.showMessage(failure.subject, failure.what());
    }
    return static_cast<int>(ExitCode::Error);
}

} // namespace

int run(int argumentCount, const char* const* arguments) {
    Terminal::prepareStandardStreams();
    Context context;
    try {
        concealPasswords(context.console, argumentCount, arguments);
        const int exitCode = execute(argumentCount, arguments, context);
        context.console.finish();
        return exitCode;
    } catch (const Console::OutputFailure& failure) {
        context.console.discard();
        if (failure.code() != std::errc::broken_pipe) // the reader closed the pipe: no message
            context.console.showMessage("standard output", failure.code().message());
    } catch (const std::bad_alloc&) {
        Terminal::writeMessage("payload-profiles: out of memory\n"); // allocates nothing
    } catch (const std::exception& error) {
        context.console.discard();
        context.console.showMessage("", error.what());
    }
    return static_cast<int>(ExitCode::Error);
}

} // namespace norel::Desktop::PayloadProfiles

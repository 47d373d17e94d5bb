#include "CommandLine.h"

#include "commands/Command.h"
#include "commands/Commands.h"
#include "commands/Completion.h"
#include "documents/Failure.h"
#include "documents/Source.h"
#include "reports/HelpReport.h"
#include "terminal/Terminal.h"
#include "text/Utf8Path.h"

#include <string_view>

namespace norel::Desktop::PayloadProfiles {
namespace {

constexpr const char* DESCRIPTION = "Lists, shows, checks and changes the payload profiles in a file.";

constexpr const char* VERSION = "payload-profiles " PAYLOAD_PROFILES_VERSION;
constexpr const char* NOTES =
    "SOURCE is a file, \"factory\" for the built-in profiles, or the base address of the processing web "
    "service (http://..., https://...). Write \"./factory\" for a file of that name. The key of the web "
    "service is read from --key-file or from the environment variable PAYLOAD_PROFILES_KEY.\n"
    "\n"
    "Exit codes: 0 success, 1 validate found an invalid file or diff a difference, 2 error.\n"
    "\n"
    "See payload-profiles COMMAND --help for details and examples.";

/// Registers every argument that may contain the password of an address, whichever command or option it is
/// given to by mistake.
void concealPasswords(Console& console, int argumentCount, const char* const* arguments) {
    for (int i = 1; i < argumentCount; ++i) {
        const std::string argument = arguments[i];
        const bool isOption = argument.starts_with("--");
        const Source value{isOption ? argument.substr(argument.find('=') + 1) : argument, {}};
        console.conceal(value.location, value.getName());
        const Source fileName{Text::toUtf8(Text::makePath(value.location).filename()), {}};
        console.conceal(fileName.location, fileName.getName()); // a lock file's name may contain it
    }
}

int execute(int argumentCount, const char* const* arguments, Context& context) {
    const CommandParser parser({"payload-profiles", DESCRIPTION, NOTES, {}, {}, {}, {}}, VERSION);
    CLI::App& application = parser.getApplication();
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
        context.console.print(parser.parse(argumentCount, arguments));
        return static_cast<int>(context.exitCode);
    } catch (const CommandLineError& error) {
        context.console.showMessage("", error.what());
        context.console.showMessage("", "see " + error.command + " --help");
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

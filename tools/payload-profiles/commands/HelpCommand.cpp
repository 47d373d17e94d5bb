#include "commands/Command.h"
#include "commands/Commands.h"
#include "documents/Failure.h"
#include "reports/HelpReport.h"

#include <algorithm>
#include <memory>

namespace norel::Desktop::PayloadProfiles {
namespace {

std::string makeHelpOf(const CommandSyntax& application, const std::string& name) {
    if (name.empty())
        return makeHelp(application);
    const auto command = std::ranges::find(application.commands, name, &CommandSyntax::getShortName);
    if (command == application.commands.end())
        throw Failure("help", describeUnknownCommand(application, name));
    return makeHelp(*command);
}

} // namespace

void addHelpCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "help", "Print the help of a command",
                                       "help add\n"
                                       "help");
    const auto name = std::make_shared<std::string>();
    command.addOptionalArgument("COMMAND", *name, "The command; without it, the help of all");
    command.run(
        [&application, &context, name] { context.console.print(makeHelpOf(describe(application), *name)); });
}

void addManualCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "manual", "Print the manual page, for man", "manual");
    command.hide();
    command.run([&application, &context] {
        context.console.print(
            makeManual(describe(application), "payload-profiles " PAYLOAD_PROFILES_VERSION));
    });
}

} // namespace norel::Desktop::PayloadProfiles

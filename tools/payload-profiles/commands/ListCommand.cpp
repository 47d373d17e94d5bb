#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "reports/ProfileReport.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

struct ListArguments {
    Source source;
    bool asJson = false;
};

void list(Context& context, const ListArguments& arguments) {
    const ProfileList profiles = readSource(context.documents, arguments.source);
    context.console.print(arguments.asJson ? makeJsonList(profiles) : makeTextList(profiles));
}

} // namespace

void addListCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "list", "List the profiles of a source",
                                       "list profiles.json\n"
                                       "list factory --json\n"
                                       "list https://processing.example/ --key-file key.txt");
    const auto arguments = std::make_shared<ListArguments>();
    addSource(command, arguments->source);
    command.addFlag("--json", arguments->asJson, "Print JSON");
    command.run([&context, arguments] { list(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

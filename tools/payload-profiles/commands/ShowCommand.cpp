#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Failure.h"
#include "documents/ProfileId.h"
#include "reports/ProfileReport.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct ShowArguments {
    Source source;
    std::string id;
    bool asJson = false;
};

void show(Context& context, const ShowArguments& arguments) {
    const unsigned int id = parseId(arguments.id);
    unsigned int index = 0;
    for (const Profile& profile : readSource(context.documents, arguments.source)) {
        if (profile.getId() == id) {
            context.console.print(arguments.asJson ? makeJsonReport(profile, index)
                                                   : makeTextReport(profile, index));
            return;
        }
        ++index;
    }
    throw Failure(arguments.source.getName(), "there is no profile " + arguments.id);
}

} // namespace

void addShowCommand(CLI::App& application, Context& context) {
    CLI::App& command = addCommand(application, "show", "Show a profile with all of its parameters",
                                   "show profiles.json 88\n"
                                   "show factory 88 --json");
    const auto arguments = std::make_shared<ShowArguments>();
    addSource(command, arguments->source);
    command.add_option("ID", arguments->id, "The id of the profile")->required()->check(checkId);
    command.add_flag("--json", arguments->asJson, "Print JSON");
    command.callback([&context, arguments] { show(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

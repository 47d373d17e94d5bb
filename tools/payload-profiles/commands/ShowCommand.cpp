#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/ProfileId.h"
#include "reports/ProfileReport.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

struct ShowArguments {
    Source source;
    std::string id;
    bool asJson = false;
    bool asDocument = false;
};

std::string makeReport(const Context& context, const ShowArguments& arguments, Profile profile,
                       unsigned int index) {
    if (arguments.asDocument) {
        ProfileList list;
        list.add(profile);
        return context.documents.serializer->serialize(list) + '\n';
    }
    return arguments.asJson ? makeJsonReport(profile, index) : makeTextReport(profile, index);
}

void show(Context& context, const ShowArguments& arguments) {
    const unsigned int id = parseId(arguments.id);
    const ProfileList list = readSource(context.documents, arguments.source);
    requireProfiles(list, {id}, arguments.source.getName());
    unsigned int index = 0;
    for (const Profile& profile : list) {
        if (profile.getId() == id) {
            context.console.print(makeReport(context, arguments, profile, index));
            return;
        }
        ++index;
    }
}

} // namespace

void addShowCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "show", "Show a profile with all of its parameters",
                                       "show profiles.json 88\n"
                                       "show factory 88 --json\n"
                                       "show factory 88 --document > profile.json");
    const auto arguments = std::make_shared<ShowArguments>();
    addSource(command, arguments->source);
    command.addArgument("ID", arguments->id, "The id of the profile", checkId);
    command.addFlag("--json", arguments->asJson,
                    "Print JSON with the range, default and presets of every parameter, and its \"query\": "
                    "its path for jq; \"add\" takes what --document prints");
    command.addFlag("--document", arguments->asDocument,
                    "Print the profile as a document, which \"add\" takes");
    command.exclude("--json", "--document");
    command.run([&context, arguments] { show(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

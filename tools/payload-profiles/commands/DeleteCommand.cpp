#include "commands/Arguments.h"
#include "commands/Commands.h"
#include "documents/Drafts.h"
#include "documents/ProfileFile.h"
#include "documents/ProfileId.h"
#include "norel/Desktop/Domain/Payloads/UseCase/DeleteProfile.h"

#include <set>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct DeleteArguments {
    std::string file;
    std::vector<std::string> ids;
    ChangeOptions options;
};

/// Deletes all of the profiles, or none on any error: the file is written once.
void deleteProfiles(Context& context, const DeleteArguments& arguments) {
    std::set<unsigned int> ids;
    for (const std::string& id : arguments.ids)
        ids.insert(parseId(id));
    const FileToChange file(context.documents, arguments.file, FileToChange::Expected::File,
                            arguments.options);
    const ProfileList list = file.read();
    requireProfiles(list, ids, arguments.file, "; nothing was deleted");
    const auto draft = std::make_shared<DraftStorage>(list);
    for (const unsigned int id : ids)
        UseCase::DeleteProfile(draft).execute(id);
    file.write(draft->read());
    const char* const verb = arguments.options.dryRun ? "would delete " : "deleted ";
    for (const unsigned int id : ids)
        context.console.print(verb + describe(*list.get(id)) + '\n');
}

} // namespace

void addDeleteCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "delete", "Delete profiles from a file, either all or none",
                   "delete profiles.json 88\n"
                   "delete profiles.json 4 3 2");
    const auto arguments = std::make_shared<DeleteArguments>();
    command.addArgument("FILE", arguments->file, "The file to change");
    command.addArguments("ID", arguments->ids, "The ids of the profiles", checkId);
    addChangeOptions(command, arguments->options);
    command.run([&context, arguments] { deleteProfiles(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

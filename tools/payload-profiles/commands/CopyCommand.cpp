#include "commands/Arguments.h"
#include "commands/ChangeProfile.h"
#include "commands/Commands.h"
#include "documents/Drafts.h"
#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "documents/ProfileId.h"
#include "norel/Desktop/Domain/Payloads/ToBuilder.h"
#include "norel/Desktop/Domain/Payloads/UseCase/AddOrUpdateProfile.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

struct CopyArguments {
    Source source;
    std::string id;
    std::string file;
    std::optional<std::string> name;
    ChangeOptions options;
};

Profile readOriginal(Context& context, const CopyArguments& arguments) {
    const ProfileList source = readProfilesToCopy(context, arguments.source);
    const unsigned int id = parseId(arguments.id);
    requireProfiles(source, {id}, arguments.source.getName());
    return *source.get(id);
}

void copy(Context& context, const CopyArguments& arguments) {
    requireChangeable(arguments.file);
    const Profile original = readOriginal(context, arguments);
    Profile::Builder builder = toBuilder(original);
    builder.name = arguments.name.value_or(builder.name);
    Profile profile = about(arguments.file, [&] { return builder.build(); });
    const FileToChange file(context.documents, arguments.file, FileToChange::Expected::Anything,
                            arguments.options);
    const ProfileList list = file.read();
    if (list.existById(profile.getId()))
        profile.setId(list.existById(Profile::ID_IS_UNASSIGNED) ? 0 : Profile::ID_IS_UNASSIGNED);
    const auto draft = std::make_shared<DraftStorage>(list);
    about(arguments.file, [&] { UseCase::AddOrUpdateProfile(draft, context.clock).execute(profile); });
    file.write(draft->read());
    context.console.print((arguments.options.dryRun ? "would add " : "added ") + describe(profile) +
                          (profile.getId() == original.getId()
                               ? ""
                               : ": the id " + std::to_string(original.getId()) + " is taken") +
                          '\n');
}

} // namespace

void addCopyCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "copy", "Copy a profile of a source to a file",
                                       "copy factory 88 profiles.json --name \"Drone 7\"\n"
                                       "copy profiles.json 88 profiles.json --name \"Drone 8\"");
    const auto arguments = std::make_shared<CopyArguments>();
    addSource(command, arguments->source);
    command.addArgument("ID", arguments->id, "The id of the profile", checkId);
    command.addArgument("FILE", arguments->file, "The file to change; created if missing");
    command.addOption("--name", "NAME", arguments->name, "Set the name of the copy");
    addChangeOptions(command, arguments->options);
    command.run([&context, arguments] { copy(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

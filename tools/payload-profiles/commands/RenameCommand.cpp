#include "commands/ChangeProfile.h"
#include "commands/Commands.h"
#include "norel/Desktop/Domain/Payloads/ToBuilder.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

struct RenameArguments {
    ProfileToChange target;
    std::string name;
};

void rename(Context& context, const RenameArguments& arguments) {
    changeProfile(context, arguments.target, [&](const Profile& profile) {
        Profile::Builder builder = toBuilder(profile);
        builder.name = arguments.name;
        return builder.build();
    });
}

} // namespace

void addRenameCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "rename", "Rename a profile", "rename profiles.json 88 \"Drone 7\"");
    const auto arguments = std::make_shared<RenameArguments>();
    addProfileToChange(command, arguments->target);
    command.addArgument("NAME", arguments->name, "The new name");
    command.run([&context, arguments] { rename(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

#include "commands/ChangeProfile.h"
#include "commands/Commands.h"
#include "norel/Desktop/Domain/Payloads/ToBuilder.h"

#include <CLI/CLI.hpp>

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
    CLI::App& command =
        addCommand(application, "rename", "Rename a profile", "rename profiles.json 88 \"Drone 7\"");
    const auto arguments = std::make_shared<RenameArguments>();
    addProfileToChange(command, arguments->target);
    command.add_option("NAME", arguments->name, "The new name")->required();
    command.callback([&context, arguments] { rename(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

#include "commands/ChangeProfile.h"
#include "commands/Commands.h"
#include "commands/ProfileEdit.h"
#include "norel/Desktop/Domain/Payloads/ProfileListDefaultProductsStorage.h"
#include "terminal/Text.h"

#include <algorithm>
#include <stdexcept>

namespace norel::Desktop::PayloadProfiles {
namespace {

struct ResetArguments {
    ProfileToChange target;
    std::vector<std::string> paths;
    bool toFactory = false;
};

Profile findFactoryProfile(const std::string& product) {
    const ProfileList factory = ProfileListDefaultProductsStorage().read();
    const auto found = std::ranges::find(factory, product, &Profile::getProduct);
    if (found == factory.end())
        throw std::runtime_error("there is no factory profile of the product " + inQuotes(product));
    return *found;
}

void reset(Context& context, const ResetArguments& arguments) {
    changeProfile(context, arguments.target, [&](const Profile& profile) {
        return arguments.toFactory
                   ? withFactoryValues(profile, findFactoryProfile(profile.getProduct()), arguments.paths)
                   : withDefaults(profile, arguments.paths);
    });
}

} // namespace

void addResetCommand(CLI::App& application, Context& context) {
    const Command command =
        addCommand(application, "reset", "Reset the parameters of a profile to their defaults",
                   "reset profiles.json 88\n"
                   "reset profiles.json 88 lidar.imu_latency\n"
                   "reset profiles.json 88 lidar.ground_classification --factory");
    const auto arguments = std::make_shared<ResetArguments>();
    addProfileToChange(command, arguments->target);
    command.addOptionalArguments("PATH", arguments->paths,
                                 "A parameter or a section, as show prints it (default: the whole profile)");
    command.addFlag("--factory", arguments->toFactory,
                    "Reset to the factory profile of the product instead; the id, name, serial number and "
                    "times are kept");
    command.run([&context, arguments] { reset(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

#include "commands/ChangeProfile.h"
#include "commands/Commands.h"
#include "commands/ProfileEdit.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

struct SetArguments {
    ProfileToChange target;
    std::vector<std::string> assignments;
};

std::string checkAssignment(const std::string& text) {
    const std::size_t equals = text.find('=');
    return equals != 0 && equals != std::string::npos ? ""
                                                      : inQuotes(text) + " is not of the form PATH=VALUE";
}

void set(Context& context, const SetArguments& arguments) {
    std::vector<Assignment> assignments;
    for (const std::string& text : arguments.assignments) {
        const std::size_t equals = text.find('=');
        assignments.push_back({text.substr(0, equals), text.substr(equals + 1)});
    }
    changeProfile(context, arguments.target,
                  [&](const Profile& profile) { return withAssignments(profile, assignments); });
}

} // namespace

void addSetCommand(CLI::App& application, Context& context) {
    const Command command = addCommand(application, "set", "Set members of a profile, either all or none",
                                       "set profiles.json 88 lidar.imu_latency=0.002\n"
                                       "set profiles.json 88 lidar.imu_latency.maximum=2 \\\n"
                                       "    lidar.imu_latency=1.5\n"
                                       "set profiles.json 88 name=\"Drone 7\"\n"
                                       "set profiles.json 88 \\\n"
                                       "    lidar.ground_classification.number_of_neighbors=@mountainous");
    const auto arguments = std::make_shared<SetArguments>();
    addProfileToChange(command, arguments->target);
    command.addArguments("PATH=VALUE", arguments->assignments,
                         "The path of a member, as show prints it, and its new value; @NAME is the preset of "
                         "a parameter with that name",
                         checkAssignment);
    command.run([&context, arguments] { set(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

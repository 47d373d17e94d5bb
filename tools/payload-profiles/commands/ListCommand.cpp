#include "commands/Commands.h"
#include "documents/Source.h"
#include "norel/Desktop/DateTime/DateTimeConversion.h"
#include "reports/ProfileReport.h"
#include "terminal/Table.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

namespace norel::Desktop::PayloadProfiles {
namespace {

using DataFormat::Json;
using DateTime::DateTimeConversion;

struct ListArguments {
    Source source;
    bool asJson = false;
};

Json toJson(const Profile& profile) {
    Json object = makeJsonIdentity(profile);
    const auto lidar = profile.getLidar();
    object.set("lidar_file_extension", lidar ? Json(lidar->getFileExtension()) : Json());
    object.set("cameras", Json(listOrientations(profile)));
    return object;
}

std::string makeJson(const ProfileList& list) {
    std::vector<Json> profiles;
    for (const Profile& profile : list)
        profiles.push_back(toJson(profile));
    return printableJson(Json(std::move(profiles)).toString(4)) + '\n';
}

Table makeTable(const ProfileList& list, bool withTimeOfDay) {
    Table table({"ID", "NAME", "PRODUCT", "SERIAL NUMBER", "LIDAR", "CAMERAS", "LAST MODIFIED"});
    for (const Profile& profile : list) {
        const std::string time = DateTimeConversion::toIso8601(profile.getLastModificationTime());
        const auto lidar = profile.getLidar();
        table.add({std::to_string(profile.getId()), printable(profile.getName()),
                   printable(profile.getProduct()), orDash(printable(profile.getSerialNumber())),
                   lidar ? orQuotes(printable(lidar->getFileExtension())) : "-",
                   std::to_string(listOrientations(profile).size()),
                   withTimeOfDay ? time.substr(0, time.find('+')) + 'Z' : time.substr(0, time.find('T'))});
    }
    return table;
}

std::string makeText(const ProfileList& list) {
    const auto width = Terminal::getOutputWidth();
    Table table = makeTable(list, true);
    if (width && table.getWidth() > *width)
        table = makeTable(list, false);
    std::string text;
    for (const std::string& line : table.makeLines(width))
        text += (text.empty() ? bold(line) : line) + '\n';
    return text;
}

void list(Context& context, const ListArguments& arguments) {
    const ProfileList profiles = readSource(context, arguments.source);
    context.console.print(arguments.asJson ? makeJson(profiles) : makeText(profiles));
}

} // namespace

void addListCommand(CLI::App& application, Context& context) {
    CLI::App& command = addCommand(application, "list", "List the profiles of a source",
                                   "list profiles.json\n"
                                   "list factory --json\n"
                                   "list https://processing.example/ --key-file key.txt");
    const auto arguments = std::make_shared<ListArguments>();
    addSource(command, arguments->source);
    command.add_flag("--json", arguments->asJson, "Print JSON");
    command.callback([&context, arguments] { list(context, *arguments); });
}

} // namespace norel::Desktop::PayloadProfiles

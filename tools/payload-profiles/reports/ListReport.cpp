#include "norel/Desktop/DateTime/DateTimeConversion.h"
#include "reports/ProfileReport.h"
#include "terminal/Table.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;
using DateTime::DateTimeConversion;

Json toJson(const Profile& profile) {
    Json object = makeJsonIdentity(profile);
    const auto lidar = profile.getLidar();
    object.set("lidar_file_extension", lidar ? Json(lidar->getFileExtension()) : Json());
    object.set("cameras", Json(listOrientations(profile)));
    return object;
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

} // namespace

std::string makeTextList(const ProfileList& list) {
    const auto width = Terminal::getOutputWidth();
    Table table = makeTable(list, true);
    if (width && table.getWidth() > *width)
        table = makeTable(list, false);
    if (width && table.getWidth() > *width)
        table.removeEmptyColumns();
    std::string text;
    for (const std::string& line : table.makeLines(width))
        text += (text.empty() ? bold(line) : line) + '\n';
    return text;
}

std::string makeJsonList(const ProfileList& list) {
    std::vector<Json> profiles;
    for (const Profile& profile : list)
        profiles.push_back(toJson(profile));
    return printableJson(Json(std::move(profiles)).toString(4)) + '\n';
}

} // namespace norel::Desktop::PayloadProfiles

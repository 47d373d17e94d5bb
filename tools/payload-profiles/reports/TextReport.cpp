#include "norel/Desktop/DateTime/DateTimeConversion.h"
#include "reports/ProfileParameters.h"
#include "reports/ProfileReport.h"
#include "terminal/Table.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"

#include <algorithm>
#include <functional>

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DateTime::DateTimeConversion;

constexpr const char* MARK = "*";

std::string makeLine(const std::string& label, const std::string& value) {
    constexpr std::size_t labelWidth = 24;
    return "  " + label + std::string(labelWidth - label.size(), ' ') + value + '\n';
}

std::string toText(const FieldOfViewRange& range) {
    return numberToText(Number(range.getMinimum())) + " to " + numberToText(Number(range.getMaximum())) +
           ' ' + range.getUnit();
}

std::string joined(const std::vector<std::string>& texts) {
    std::string result;
    for (const std::string& text : texts)
        result += (result.empty() ? "" : ", ") + text;
    return result;
}

std::string makeIdentity(const Profile& profile, unsigned int index) {
    return bold("Profile " + std::to_string(profile.getId()) + ' ' + inQuotes(profile.getName())) + '\n' +
           makeLine("product", printable(profile.getProduct())) +
           makeLine("serial number", orDash(printable(profile.getSerialNumber()))) +
           makeLine("created", DateTimeConversion::toIso8601(profile.getCreationTime())) +
           makeLine("last modified", DateTimeConversion::toIso8601(profile.getLastModificationTime())) +
           makeLine("index in the document", '[' + std::to_string(index) + ']');
}

std::string makeTrajectory(const Profile& profile) {
    const Trajectory trajectory = profile.getTrajectory();
    const auto external = trajectory.getImuExternal();
    return makeLine("cameras", orDash(joined(listOrientations(profile)))) +
           makeLine("GNSS, onboard", trajectory.getImuOnboard().getGnssStandardDeviation()) +
           makeLine("GNSS, external", external ? external->getGnssStandardDeviation() : "-") +
           makeLine("stabilized mount", trajectory.getStabilizedMount());
}

std::string makeLidar(const Lidar& lidar) {
    const Georeferencing georeferencing = lidar.getGeoreferencing();
    const FieldOfViews fieldOfViews = georeferencing.getFieldOfViews();
    std::string text = makeLine("lidar file extension", orQuotes(printable(lidar.getFileExtension()))) +
                       makeLine("lidar alignment", lidar.getAlignment());
    for (const FieldOfView& choice : fieldOfViews.getListOfFieldOfViews())
        text += makeLine("field of view", toText(choice.getView()) + ", keeps " + toText(choice.getFilter()) +
                                              (choice.getIsDefault() ? " (default)" : ""));
    const auto calibration = georeferencing.getCalibrationDocument();
    return text +
           makeLine("calibration document", calibration
                                                ? inQuotes(calibration->getName()) + ", " +
                                                      counted(calibration->getContent().size(), "byte")
                                                : "-") +
           makeLine("calibration range", toText(lidar.getBoresightCalibration().getFieldOfView()));
}

std::string makeItems(const std::vector<std::string>& texts) {
    std::string items;
    for (const std::string& text : texts)
        items += "   " + printable(text) + '\n';
    return items;
}

std::string presetsOf(const ProfileParameter& parameter) {
    std::vector<std::string> presets;
    for (const auto& [name, number] : parameter.presets)
        presets.push_back(printable(name) + " " + numberToText(number));
    return joined(presets);
}

/// The cells of a parameter, without its presets.
std::vector<std::string> cellsOf(const ProfileParameter& parameter) {
    const auto& [path, value, unit, range, precision, defaultValue, presets] = parameter;
    return {parameter.differsFromDefault() ? MARK : "",
            path,
            numberToText(value),
            orDash(unit.value_or("")),
            range ? numberToText(range->first) + " to " + numberToText(range->second) : "-",
            defaultValue ? numberToText(*defaultValue) : "-"};
}

/// A table with a line for each parameter, presets included, of any width.
std::string makeWideTable(const std::vector<ProfileParameter>& parameters,
                          std::vector<std::string> headings) {
    headings.push_back("PRESETS");
    Table table(headings);
    for (const ProfileParameter& parameter : parameters) {
        std::vector<std::string> cells = cellsOf(parameter);
        cells.push_back(orDash(presetsOf(parameter)));
        table.add(cells);
    }
    std::string text;
    for (const std::string& line : table.makeLines(std::nullopt))
        text += line + '\n';
    return text;
}

/// A paragraph for each parameter, for a terminal that is too narrow for a table.
std::string makeParagraphs(const std::vector<ProfileParameter>& parameters) {
    std::string text;
    for (const ProfileParameter& parameter : parameters) {
        const std::vector<std::string> cells = cellsOf(parameter);
        std::string lines = (cells[0].empty() ? " " : cells[0]) + ' ' + cells[1] + "\n      " + cells[2];
        if (parameter.unit && !parameter.unit->empty())
            lines += ' ' + cells[3];
        if (parameter.range)
            lines += ", range " + cells[4];
        if (parameter.defaultValue)
            lines += ", default " + cells[5];
        if (!parameter.presets.empty())
            lines += "\n      presets: " + presetsOf(parameter);
        text += (parameter.differsFromDefault() ? highlighted(lines) : lines) + '\n';
    }
    return text;
}

std::string makeTerminalTable(const std::vector<ProfileParameter>& parameters,
                              const std::vector<std::string>& headings, std::size_t width) {
    Table table(headings);
    for (const ProfileParameter& parameter : parameters)
        table.add(cellsOf(parameter));
    if (table.getWidth() > width)
        return makeParagraphs(parameters);
    const std::vector<std::string> lines = table.makeLines(width);
    std::string text = bold(lines[0]) + '\n';
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const std::string& line = lines[i + 1];
        text += (parameters[i].differsFromDefault() ? highlighted(line) : line) + '\n';
        if (!parameters[i].presets.empty())
            text += "      presets: " + presetsOf(parameters[i]) + '\n';
    }
    return text;
}

} // namespace

std::string makeTextReport(const Profile& profile, unsigned int index) {
    std::string text = makeIdentity(profile, index);
    if (const auto lidar = profile.getLidar())
        text += makeLidar(*lidar);
    text += makeTrajectory(profile);

    const auto [parameters, textLists] = listSettings(profile);
    const std::vector<std::string> headings{"", "PARAMETER", "VALUE", "UNIT", "RANGE", "DEFAULT"};
    const auto width = Terminal::getOutputWidth();
    text += '\n' +
            (width ? makeTerminalTable(parameters, headings, *width) : makeWideTable(parameters, headings));
    if (std::any_of(parameters.begin(), parameters.end(), std::mem_fn(&ProfileParameter::differsFromDefault)))
        text += "* differs from its default\n";
    for (const ProfileTextList& list : textLists)
        text += '\n' + list.path + ":\n" + makeItems(list.texts);
    return text;
}

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

using Number = std::variant<int, unsigned int, double>;

std::string numberToText(const Number& number);
DataFormat::Json numberToJson(const Number& number);

/// A parameter as the document holds it; what the document leaves out at its place is empty.
struct ProfileParameter {
    std::string path; ///< from the profile on, such as "lidar.imu_latency"
    Number value;
    std::optional<std::string> unit;
    std::optional<std::pair<Number, Number>> range; ///< both inclusive
    std::optional<double> precision;
    std::optional<Number> defaultValue;
    std::map<std::string, Number> presets;

    bool differsFromDefault() const { return defaultValue && *defaultValue != value; }
};

/// A list of texts, such as the kinds of terrain that presets are named after.
struct ProfileTextList {
    std::string path;
    std::vector<std::string> texts;
};

/// The settings of a profile in the order of the document.
struct ProfileSettings {
    std::vector<ProfileParameter> parameters;
    std::vector<ProfileTextList> textLists;
};

ProfileSettings listSettings(const Domain::Payloads::Profile& profile);

} // namespace norel::Desktop::PayloadProfiles

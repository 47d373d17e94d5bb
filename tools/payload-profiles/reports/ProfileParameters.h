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

/// A parameter as it is in the document; what the document leaves out there is empty.
struct ProfileParameter {
    std::string path; ///< within the profile, such as "lidar.imu_latency"
    Number value;
    std::optional<std::string> unit;
    std::optional<std::pair<Number, Number>> range; ///< both inclusive
    std::optional<double> precision;
    std::optional<Number> defaultValue;
    std::map<std::string, Number> presets;

    bool differsFromDefault() const { return defaultValue && *defaultValue != value; }
};

/// A list of texts, such as the names of the terrain types.
struct ProfileTextList {
    std::string path;
    std::vector<std::string> texts;
};

/// The settings of a profile, in the order of the document.
struct ProfileSettings {
    std::vector<ProfileParameter> parameters;
    std::vector<ProfileTextList> textLists;
};

ProfileSettings listSettings(const Domain::Payloads::Profile& profile);

} // namespace norel::Desktop::PayloadProfiles

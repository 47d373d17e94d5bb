#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// The steps from a profile to one of its members: keys, and "[INDEX]" for an element of an array.
using MemberPath = std::vector<std::string>;

/// The key of the number that a parameter stands for.
inline constexpr const char* PARAMETER_VALUE = "value";

/// The key of the named values of a parameter.
inline constexpr const char* PARAMETER_PRESETS = "presets";

/// A number, a text, a flag or a list of texts in the document of a profile.
struct ProfileMember {
    MemberPath path;
    DataFormat::Json value;
    std::string text;                ///< the value for people; texts in quotation marks
    std::optional<std::string> unit; ///< of a number that belongs to a parameter with a unit
    bool isParameterValue = false;   ///< whether it is the value of a parameter
};

/// All members of a profile, in the order of the document.
std::vector<ProfileMember> listMembers(const Domain::Payloads::Profile& profile);

/// "lidar.imu_latency.value", as errors word it
std::string toText(const MemberPath& path);

/// The path for people: the value of a parameter has the path of the parameter.
std::string describePath(const ProfileMember& member);

/// The document of a profile.
DataFormat::Json makeDocument(const Domain::Payloads::Profile& profile);

/// The value at a path; empty when there is none.
std::optional<DataFormat::Json> findValue(const DataFormat::Json& document, const MemberPath& path);

/// The document with the value at a path, from its step `depth` on, replaced or added; empty when its parent
/// does not exist.
std::optional<DataFormat::Json> withValue(const DataFormat::Json& document, const MemberPath& path,
                                          const DataFormat::Json& value, std::size_t depth = 0);

/// The index in a step "[INDEX]"; empty for a key.
std::optional<unsigned int> parseIndex(const std::string& step);

} // namespace norel::Desktop::PayloadProfiles

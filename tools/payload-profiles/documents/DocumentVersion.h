#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// The first document version that an upgrade starts from, and the one of this release.
inline constexpr unsigned int FIRST_VERSION = 1;
inline constexpr unsigned int CURRENT_VERSION = 5;

using Section = Domain::Payloads::DocumentVersions::Section;

/// "lidar.strip_adjustment"
std::string getName(const Section& section);

bool hasSection(const DataFormat::Json& profile, const Section& section);

/// A profile of a stored document, of whatever version.
struct StoredProfile {
    std::string label; ///< `88 "Name"`, printable; its place "[2]" when it has no id
    DataFormat::Json value;
};

/// The profiles that have a lidar, those where the lidar is null, and those where it is another value than an
/// object. An empty text is an empty list. Throws the host's JsonError for a text that is no JSON array.
struct StoredLidars {
    explicit StoredLidars(const std::string& text);

    std::vector<StoredProfile> profiles;
    std::vector<StoredProfile> nulls;
    std::vector<StoredProfile> others;
};

/// The labels of profiles, with commas between them.
std::string joinLabels(const std::vector<StoredProfile>& profiles);

/// No version fits the document.
struct VersionUnclear : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The version of a document, told by the sections that every lidar profile has or lacks; empty when there is
/// no lidar profile. Throws VersionUnclear, which names the profiles.
std::optional<unsigned int> findVersion(const std::vector<StoredProfile>& profiles);

} // namespace norel::Desktop::PayloadProfiles

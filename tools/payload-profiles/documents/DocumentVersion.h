#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

using Section = Domain::Payloads::DocumentVersions::Section;

/// "lidar.strip_adjustment"
std::string getName(const Section& section);

bool hasSection(const DataFormat::Json& profile, const Section& section);

/// A profile of a stored document of any version.
struct StoredProfile {
    /// `88 "Name"`, printable, with at most 100 bytes of the name; its index, "[2]", when it has no id.
    std::string label;
    DataFormat::Json value;
};

/// The profiles that have a lidar, which is an object, and those with another value in its place. A null
/// lidar is an absent one. An empty text is an empty list. Throws the host's JsonError for a text that is not
/// a JSON array.
struct StoredLidars {
    explicit StoredLidars(const std::string& text);

    std::vector<StoredProfile> profiles;
    std::vector<StoredProfile> invalid;
};

constexpr std::size_t MAXIMUM_LABELS_OF_MESSAGE = 20;

/// The labels of the first `most` profiles, separated by commas, and how many others there are.
std::string joinLabels(const std::vector<StoredProfile>& profiles, std::size_t most = SIZE_MAX);

/// The version of a document cannot be determined.
struct VersionUnclear : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The version of a document, determined from the sections that its lidar profiles have; empty when there is
/// no lidar profile. Throws VersionUnclear, which names the profiles.
std::optional<unsigned int> findVersion(const std::vector<StoredProfile>& profiles);

/// Upgrades a document of the version before `version` to `version`. Throws what ProfileUpgrade throws.
std::string upgradeTo(unsigned int version, const std::string& text);

} // namespace norel::Desktop::PayloadProfiles

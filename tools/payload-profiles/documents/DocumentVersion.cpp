#include "documents/DocumentVersion.h"

#include "terminal/Text.h"

#include <algorithm>
#include <map>

namespace norel::Desktop::PayloadProfiles {
namespace {

using DataFormat::Json;
namespace DocumentVersions = Domain::Payloads::DocumentVersions;

constexpr const char* LIDAR = "lidar";

std::string makeLabel(const Json& profile, unsigned int index) {
    std::string label;
    try {
        label = std::to_string(profile.getValue("id").as<unsigned int>());
        return label + ' ' + inQuotes(profile.get("name"));
    } catch (const Json::JsonError&) { // not worth a failure: the label only serves messages
        return label.empty() ? '[' + std::to_string(index) + ']' : label;
    }
}

/// Told by the text, since a Json does not tell its kind.
bool isObject(const Json& value) { return value.toString(-1).starts_with('{'); }

/// The version whose sections a profile has. Throws VersionUnclear when it lacks one that a later one it has
/// builds on.
unsigned int findVersion(const StoredProfile& profile) {
    std::optional<Section> lacking;
    unsigned int version = FIRST_VERSION;
    for (unsigned int next = FIRST_VERSION + 1; next <= CURRENT_VERSION; ++next) {
        const unsigned int lackingBefore = !lacking ? next : version + 1;
        for (const Section& section : DocumentVersions::getSections(next)) {
            const bool has = hasSection(profile.value, section);
            if (!has && !lacking)
                lacking = section;
            if (has && next > lackingBefore)
                throw VersionUnclear("the profile " + profile.label + " has " + getName(section) +
                                     " but lacks " + getName(*lacking) + "; tell its version with --from");
        }
        if (!lacking)
            version = next;
    }
    return version;
}

} // namespace

std::string getName(const Section& section) {
    std::string name;
    for (const std::string& key : section)
        name += (name.empty() ? "" : ".") + key;
    return name;
}

bool hasSection(const Json& profile, const Section& section) {
    Json value = profile;
    for (const std::string& key : section) {
        if (!value.contains(key))
            return false;
        value = static_cast<const Json&>(value).getValue(key);
    }
    return !value.isNull();
}

StoredLidars::StoredLidars(const std::string& text) {
    if (text.empty())
        return;
    const Json document = Json::fromString(text);
    unsigned int index = 0;
    for (auto element = document.begin(); element != document.end(); ++element, ++index) {
        const Json profile = *element;
        if (!profile.contains(LIDAR))
            continue;
        const Json lidar = profile.getValue(LIDAR);
        auto& kind = lidar.isNull() ? nulls : isObject(lidar) ? profiles : others;
        kind.push_back({makeLabel(profile, index), profile});
    }
}

std::string joinLabels(const std::vector<StoredProfile>& profiles) {
    std::string labels;
    for (const StoredProfile& profile : profiles)
        labels += (labels.empty() ? "" : ", ") + profile.label;
    return labels;
}

std::optional<unsigned int> findVersion(const std::vector<StoredProfile>& profiles) {
    std::map<unsigned int, std::vector<StoredProfile>> versions;
    for (const StoredProfile& profile : profiles)
        versions[findVersion(profile)].push_back(profile);
    if (versions.empty())
        return std::nullopt;
    if (versions.size() == 1)
        return versions.begin()->first;
    std::string mixture;
    for (const auto& [version, members] : versions)
        mixture += (mixture.empty() ? "version " : "; version ") + std::to_string(version) + ": " +
                   joinLabels(members);
    throw VersionUnclear("the profiles are of several versions (" + mixture +
                         "); tell with --from which one to upgrade from");
}

} // namespace norel::Desktop::PayloadProfiles

#include "documents/DocumentVersion.h"

#include "documents/Drafts.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "norel/Desktop/Domain/Payloads/ProfileUpgrade.h"
#include "terminal/Text.h"

#include <algorithm>
#include <map>

namespace norel::Desktop::PayloadProfiles {
namespace {

using DataFormat::Json;
namespace DocumentVersions = Domain::Payloads::DocumentVersions;

constexpr const char* LIDAR = "lidar";

std::string makeLabel(const Json& profile, unsigned int index) {
    constexpr std::size_t maximumNameBytes = 100;
    std::string label;
    try {
        label = std::to_string(profile.getValue("id").as<unsigned int>());
        return label + " \"" + Text::printableText(profile.get("name"), maximumNameBytes) + '"';
    } catch (const Json::JsonError&) { // ignored: the label only serves messages
        return label.empty() ? '[' + std::to_string(index) + ']' : label;
    }
}

/// Determined from the text, since Json has no function for it.
bool isObject(const Json& value) { return value.toString(-1).starts_with('{'); }

/// The version whose sections a profile has. Throws VersionUnclear when it has a section of a later version
/// but lacks one of an earlier version.
unsigned int findVersion(const StoredProfile& profile) {
    std::optional<Section> lacking;
    unsigned int version = DocumentVersions::getFirst();
    for (unsigned int next = version + 1; next <= DocumentVersions::getCurrent(); ++next) {
        const unsigned int lackingBefore = !lacking ? next : version + 1;
        for (const Section& section : DocumentVersions::getSections(next)) {
            const bool has = hasSection(profile.value, section);
            if (!has && !lacking)
                lacking = section;
            if (has && next > lackingBefore)
                throw VersionUnclear("the profile " + profile.label + " has " + getName(section) +
                                     " but lacks " + getName(*lacking) + "; give its version with --from");
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
        if (lidar.isNull())
            continue;
        (isObject(lidar) ? profiles : invalid).push_back({makeLabel(profile, index), profile});
    }
}

std::string joinLabels(const std::vector<StoredProfile>& profiles, std::size_t most) {
    std::string labels;
    for (std::size_t i = 0; i < std::min(profiles.size(), most); ++i)
        labels += (labels.empty() ? "" : ", ") + profiles[i].label;
    return labels + (profiles.size() > most ? " and " + counted(profiles.size() - most, "other") : "");
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
                   joinLabels(members, MAXIMUM_LABELS_OF_MESSAGE);
    throw VersionUnclear("the profiles are of several versions (" + mixture +
                         "); give the one to upgrade from with --from");
}

std::string upgradeTo(unsigned int version, const std::string& text) {
    const auto draft = std::make_shared<DraftTextFileStorage>(text);
    const std::filesystem::path draftFile; // the draft is one file, whatever its path
    Domain::Payloads::ProfileUpgrade().upgradeToVersion(
        version, draft, draftFile,
        Domain::Payloads::DefaultProducts::getSourceDocumentFromVersionInfo(version));
    return draft->read(draftFile);
}

} // namespace norel::Desktop::PayloadProfiles

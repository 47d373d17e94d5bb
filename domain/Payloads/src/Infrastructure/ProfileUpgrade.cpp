#include "norel/Desktop/Domain/Payloads/ProfileUpgrade.h"

#include "DocumentKeys.h"
#include "Rules.h"
#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"
#include "norel/Desktop/Utils/StringConverter.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {
namespace {

using DataFormat::Json;
using DocumentVersions::Section;

/// The first profile for that product; the case of ASCII letters is ignored.
Json findFactoryProfile(const Json& defaults, const std::string& product) {
    const std::string upperCaseProduct = Utils::StringConverter::toUpperCase(product);
    const auto end = defaults.end();
    for (auto element = defaults.begin(); element != end; ++element) {
        Json profile = *element;
        if (Utils::StringConverter::toUpperCase(profile.get(Keys::PRODUCT)) == upperCaseProduct)
            return profile;
    }
    throw std::invalid_argument("A profile cannot be upgraded because its product, \"" + shortened(product) +
                                "\", is unknown.");
}

/// Null means no lidar, as when a document is read.
bool hasLidar(const Json& profile) {
    return profile.contains(Keys::LIDAR) && !profile.getValue(Keys::LIDAR).isNull();
}

/// Copies the section. `factory` and `stored` are the objects of both profiles that hold its key number
/// `step`.
void copySection(const Section& section, std::size_t step, const Json& factory, Json& stored) {
    if (step > 0 && stored.isNull()) // Json::set would turn it into an object with this section only
        throw std::invalid_argument("A profile cannot be upgraded because its \"" + section[step - 1] +
                                    "\" is null.");
    const Json value = factory.getValue(section[step]);
    if (step + 1 == section.size()) {
        stored.set(section[step], value);
    } else {
        Json inside = stored.getValue(section[step]); // a view: setting a member changes the profile
        copySection(section, step + 1, value, inside);
    }
}

Json upgradeProfiles(const Json& stored, const Json& defaults, const std::vector<Section>& sections) {
    std::vector<Json> profiles;
    const auto end = stored.end();
    for (auto element = stored.begin(); element != end; ++element) {
        Json profile = *element;
        const Json factoryProfile = findFactoryProfile(defaults, profile.get(Keys::PRODUCT));
        if (hasLidar(profile))
            for (const Section& section : sections)
                copySection(section, 0, factoryProfile, profile);
        profiles.push_back(std::move(profile));
    }
    return Json(std::move(profiles));
}

} // namespace

void ProfileUpgrade::upgradeToVersion(unsigned int version,
                                      const std::shared_ptr<Storage::TextFileStorage>& textFileStorage,
                                      const std::filesystem::path& path,
                                      const std::string& defaultsDocument) {
    Json stored = Json::fromString(textFileStorage->read(path));
    const Json defaults = Json::fromString(defaultsDocument);
    if (const auto sections = DocumentVersions::getSections(version); !sections.empty())
        stored = upgradeProfiles(stored, defaults, sections);
    textFileStorage->write(path, stored.toString(4));
}

} // namespace norel::Desktop::Domain::Payloads

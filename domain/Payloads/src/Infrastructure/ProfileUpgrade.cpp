#include "norel/Desktop/Domain/Payloads/ProfileUpgrade.h"

#include "DocumentKeys.h"
#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Utils/StringConverter.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {
namespace {

using DataFormat::Json;
using Section = ProfileUpgrade::Section;

/// The first profile of that product, without regard to the case of its letters.
Json findFactoryProfile(const Json& defaults, const std::string& product) {
    const std::string wanted = Utils::StringConverter::toUpperCase(product);
    const auto end = defaults.end();
    for (auto element = defaults.begin(); element != end; ++element) {
        Json profile = *element;
        if (Utils::StringConverter::toUpperCase(profile.get(Keys::PRODUCT)) == wanted)
            return profile;
    }
    throw std::invalid_argument("A profile cannot be upgraded because its product, \"" + product +
                                "\", is unknown.");
}

/// Copies the section, from its key at `step` on, out of the factory's part of the profile into the stored
/// one.
void copySection(const Section& section, std::size_t step, const Json& factory, Json& stored) {
    if (step > 0 && stored.isNull()) // which setting a member would make an object of this section alone
        throw std::invalid_argument("A profile cannot be upgraded because its \"" + section[step - 1] +
                                    "\" is null.");
    const Json value = factory.getValue(section[step]);
    if (step + 1 == section.size()) {
        stored.set(section[step], value);
    } else {
        Json inside = stored.getValue(section[step]); // a view: what is set in it is set in the profile
        copySection(section, step + 1, value, inside);
    }
}

Json upgraded(const Json& stored, const Json& defaults, const std::vector<Section>& sections) {
    std::vector<Json> profiles;
    const auto end = stored.end();
    for (auto element = stored.begin(); element != end; ++element) {
        Json profile = *element;
        const Json factoryProfile = findFactoryProfile(defaults, profile.get(Keys::PRODUCT));
        if (profile.contains(Keys::LIDAR))
            for (const Section& section : sections)
                copySection(section, 0, factoryProfile, profile);
        profiles.push_back(std::move(profile));
    }
    return Json(std::move(profiles));
}

} // namespace

std::vector<Section> ProfileUpgrade::getSections(unsigned int version) {
    using namespace Keys;
    switch (version) {
    case 2:
        return {{LIDAR, STRIP_ADJUSTMENT},
                {LIDAR, PRECISION_ENHANCEMENT, AVERAGE_POINT_CLOUD_THICKNESS},
                {LIDAR, PRECISION_ENHANCEMENT, MORPHOLOGICAL_REJECTION, AVERAGE_POINT_CLOUD_DENSITY}};
    case 3:
        return {{LIDAR, GROUND_CLASSIFICATION}};
    case 4:
        return {{LIDAR, POINT_CLOUD_DIRECT_COLORIZATION}};
    case 5:
        return {{LIDAR, GROUND_CLASSIFICATION, DSM}};
    default:
        return {};
    }
}

void ProfileUpgrade::upgradeToVersion(unsigned int version,
                                      const std::shared_ptr<Storage::TextFileStorage>& textFileStorage,
                                      const std::filesystem::path& path,
                                      const std::string& defaultsDocument) {
    Json stored = Json::fromString(textFileStorage->read(path));
    const Json defaults = Json::fromString(defaultsDocument);
    if (const std::vector<Section> sections = getSections(version); !sections.empty())
        stored = upgraded(stored, defaults, sections);
    textFileStorage->write(path, stored.toString(4));
}

} // namespace norel::Desktop::Domain::Payloads

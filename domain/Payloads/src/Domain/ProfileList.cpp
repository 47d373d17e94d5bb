#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include "ValueAccess.h"

#include <algorithm>

namespace norel::Desktop::Domain::Payloads {
namespace {

/// The first profile of that id, or the end.
template <typename Profiles>
auto findById(Profiles& profiles, unsigned int id) {
    return std::find_if(profiles.begin(), profiles.end(),
                        [id](const Profile& profile) { return profile.getId() == id; });
}

auto findByName(const std::vector<Profile>& profiles, const std::string& name) {
    return std::find_if(profiles.begin(), profiles.end(),
                        [&](const Profile& profile) { return ValueAccess::fieldsOf(profile).name == name; });
}

} // namespace

ProfileList::~ProfileList() = default;

void ProfileList::add(Profile& profile) {
    if (profile.getId() == Profile::ID_IS_UNASSIGNED || existById(profile.getId()))
        profile.setId(sortedIds.empty() ? 1 : sortedIds.back() + 1);
    const auto place = std::upper_bound(sortedIds.begin(), sortedIds.end(), profile.getId());
    const auto inserted = sortedIds.insert(place, profile.getId());
    try {
        profiles.push_back(profile);
    } catch (...) { // short of memory: neither holds it
        sortedIds.erase(inserted);
        throw;
    }
}

void ProfileList::update(const Profile& profile) {
    if (const auto stored = findById(profiles, profile.getId()); stored != profiles.end())
        *stored = profile;
}

void ProfileList::remove(unsigned int id) {
    if (!existById(id))
        return;
    profiles.erase(findById(profiles, id));
    sortedIds.erase(std::lower_bound(sortedIds.begin(), sortedIds.end(), id));
}

bool ProfileList::existById(unsigned int id) const {
    return std::binary_search(sortedIds.begin(), sortedIds.end(), id);
}

bool ProfileList::existByName(const std::string& name) const {
    return findByName(profiles, name) != profiles.end();
}

ProfileListConstIterator ProfileList::get(unsigned int id) const {
    return ProfileListConstIterator(findById(profiles, id));
}

std::optional<Profile> ProfileList::getProfileByName(const std::string& name) const {
    const auto profile = findByName(profiles, name);
    return profile != profiles.end() ? std::optional(*profile) : std::nullopt;
}

} // namespace norel::Desktop::Domain::Payloads

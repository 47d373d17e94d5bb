#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include "ValueAccess.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace norel::Desktop::Domain::Payloads {
namespace {

/// The first profile with that id, or the end.
template <typename Profiles>
auto findById(Profiles& profiles, unsigned int id) {
    return std::ranges::find(profiles, id, &Profile::getId);
}

auto findByName(const std::vector<Profile>& profiles, const std::string& name) {
    return std::ranges::find_if(
        profiles, [&](const Profile& profile) { return ValueAccess::fieldsOf(profile).name == name; });
}

} // namespace

ProfileList::~ProfileList() = default;

ProfileList& ProfileList::operator=(const ProfileList& other) {
    return *this = ProfileList(other); // the copy can throw, the move assignment cannot
}

void ProfileList::add(Profile& profile) {
    append(Profile(profile));
    profile.setId(profiles.back().getId());
}

void ProfileList::append(Profile&& profile) {
    if (profile.getId() == Profile::ID_IS_UNASSIGNED || existById(profile.getId()))
        profile.setId(sortedIds.empty() ? 1 : sortedIds.back() + 1);
    const auto position = std::ranges::upper_bound(sortedIds, profile.getId());
    const auto inserted = sortedIds.insert(position, profile.getId());
    try {
        profiles.push_back(std::move(profile));
    } catch (...) { // out of memory: keep both vectors unchanged
        sortedIds.erase(inserted);
        throw;
    }
}

void ProfileList::update(const Profile& profile) {
    static_assert(std::is_nothrow_move_assignable_v<Profile>);
    if (const auto stored = findById(profiles, profile.getId()); stored != profiles.end())
        *stored = Profile(profile); // the copy can throw, the move assignment cannot
}

void ProfileList::remove(unsigned int id) {
    if (!existById(id))
        return;
    profiles.erase(findById(profiles, id));
    sortedIds.erase(std::ranges::lower_bound(sortedIds, id));
}

bool ProfileList::existById(unsigned int id) const { return std::ranges::binary_search(sortedIds, id); }

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

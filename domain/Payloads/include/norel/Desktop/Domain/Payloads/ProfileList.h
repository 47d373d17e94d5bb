#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// A position in a ProfileList, valid as long as the list is not changed.
class NOREL_PAYLOADS_EXPORT ProfileListConstIterator {
public:
    explicit ProfileListConstIterator(std::vector<Profile>::const_iterator position) : position(position) {}

    Profile operator*() const { return *position; }
    void operator++() { ++position; }
    bool operator==(const ProfileListConstIterator&) const = default;

private:
    std::vector<Profile>::const_iterator position;
};

/// The profiles of one document in the order in which they were added, each with an id of its own. Profiles
/// are handed out as copies; searches run from the front and stop at the first match. No operation fails on
/// content.
class NOREL_PAYLOADS_EXPORT ProfileList {
public:
    ProfileList() = default;
    ProfileList(const ProfileList&) = default;
    ProfileList(ProfileList&&) = default;
    ProfileList& operator=(const ProfileList&) = default;
    ProfileList& operator=(ProfileList&&) = default;
    virtual ~ProfileList();

    /// Numbers the caller's profile and appends a copy of it. An id that is assigned and free stays;
    /// otherwise it becomes one more than the largest id of the list (modulo 2^32), or 1 in an empty list. A
    /// name may repeat.
    void add(Profile& profile);

    /// Replaces the profile of the same id, in its place; does nothing when there is none.
    void update(const Profile& profile);

    /// Removes the profile of that id, the others keep theirs; does nothing when there is none.
    void remove(unsigned int id);

    bool existById(unsigned int id) const;
    bool existByName(const std::string& name) const;

    /// The position of the profile of that id, or end().
    ProfileListConstIterator get(unsigned int id) const;

    /// The first profile of that name, byte for byte; empty when there is none.
    std::optional<Profile> getProfileByName(const std::string& name) const;

    std::vector<Profile> list() const { return profiles; }
    ProfileListConstIterator begin() const { return ProfileListConstIterator(profiles.begin()); }
    ProfileListConstIterator end() const { return ProfileListConstIterator(profiles.end()); }

    bool operator==(const ProfileList& other) const { return profiles == other.profiles; }

private:
    friend ValueAccess;

    std::vector<Profile> profiles;
    std::vector<unsigned int> sortedIds; // of the profiles, so that numbering one does not walk them all
};

} // namespace norel::Desktop::Domain::Payloads

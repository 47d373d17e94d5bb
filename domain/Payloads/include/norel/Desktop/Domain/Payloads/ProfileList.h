#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// An input iterator of a ProfileList. Any change of the list invalidates it.
class NOREL_PAYLOADS_EXPORT ProfileListConstIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Profile;
    using difference_type = std::ptrdiff_t;
    using pointer = const Profile*;
    using reference = Profile;

    ProfileListConstIterator() = default;
    explicit ProfileListConstIterator(std::vector<Profile>::const_iterator position) : current(position) {}

    /// A copy of the profile.
    Profile operator*() const { return *current; }
    /// The profile in the list.
    const Profile* operator->() const { return &*current; }

    ProfileListConstIterator& operator++() {
        ++current;
        return *this;
    }
    ProfileListConstIterator operator++(int) { return ProfileListConstIterator(current++); }

    bool operator==(const ProfileListConstIterator&) const = default;

private:
    std::vector<Profile>::const_iterator current;
};

/// The profiles of one document in the order in which they were added, each with a unique id. Profiles are
/// handed out as copies; searches run from the front and stop at the first match. Contents are not validated.
class NOREL_PAYLOADS_EXPORT ProfileList {
public:
    ProfileList() = default;
    ProfileList(const ProfileList&) = default;
    ProfileList(ProfileList&&) = default;
    ProfileList& operator=(const ProfileList& other); ///< changes nothing when it throws
    ProfileList& operator=(ProfileList&&) = default;
    virtual ~ProfileList();

    /// Assigns an id to the caller's profile and appends a copy of it. An id that is assigned and unique in
    /// the list is kept; otherwise it becomes one more than the largest id of the list (modulo 2^32), or 1 in
    /// an empty list. Names need not be unique. Changes nothing when it throws.
    void add(Profile& profile);

    /// Replaces the profile with the same id, in its position; does nothing when there is none. Changes
    /// nothing when it throws.
    void update(const Profile& profile);

    /// Removes the profile with that id; does nothing when there is none. The other profiles keep their ids.
    void remove(unsigned int id);

    bool existById(unsigned int id) const;
    bool existByName(const std::string& name) const;

    /// The position of the profile with that id, or end().
    ProfileListConstIterator get(unsigned int id) const;

    /// The first profile with exactly that name; empty when there is none.
    std::optional<Profile> getProfileByName(const std::string& name) const;

    std::size_t size() const { return profiles.size(); }
    bool empty() const { return profiles.empty(); }

    std::vector<Profile> list() const { return profiles; }
    ProfileListConstIterator begin() const { return ProfileListConstIterator(profiles.begin()); }
    ProfileListConstIterator end() const { return ProfileListConstIterator(profiles.end()); }

    bool operator==(const ProfileList& other) const { return profiles == other.profiles; }

private:
    friend ValueAccess;

    void append(Profile&& profile);

    std::vector<Profile> profiles;
    std::vector<unsigned int> sortedIds; // of the profiles, so that a search for an id is logarithmic
};

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include "norel/Desktop/DateTime/ClockProvider.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

#include <memory>

/// Operations on stored lists, each of which reads a whole list, changes it and writes it back.
namespace norel::Desktop::Domain::Payloads::UseCase {

/// Stores a profile: replaces the stored one with the same id, or appends it to the list. One
/// read-modify-write cycle, not atomic: the application must serialize the use cases that share a storage.
class NOREL_PAYLOADS_EXPORT AddOrUpdateProfile {
public:
    /// Throws std::runtime_error that names the first pointer that is null.
    AddOrUpdateProfile(const std::shared_ptr<ProfileListStorage>& profileListStorage,
                       const std::shared_ptr<DateTime::ClockProvider>& clockProvider);

    /// Sets the times of the caller's profile to the current time (both when it is added, the modification
    /// time when it is updated), assigns an id to it when it is added (ProfileList::add), and stores it.
    /// Throws what the storage and the clock throw; when the read fails, the caller's profile is unchanged.
    void execute(Profile& profile);

private:
    std::shared_ptr<ProfileListStorage> storage;
    std::shared_ptr<DateTime::ClockProvider> clock;
};

} // namespace norel::Desktop::Domain::Payloads::UseCase

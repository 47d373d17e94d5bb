#include "norel/Desktop/Domain/Payloads/UseCase/AddOrUpdateProfile.h"

#include "CheckNotNull.h"

namespace norel::Desktop::Domain::Payloads::UseCase {

AddOrUpdateProfile::AddOrUpdateProfile(const std::shared_ptr<ProfileListStorage>& profileListStorage,
                                       const std::shared_ptr<DateTime::ClockProvider>& clockProvider)
    : storage(profileListStorage), clock(clockProvider) {
    checkNotNull(profileListStorage, "profile list storage");
    checkNotNull(clockProvider, "clock provider");
}

void AddOrUpdateProfile::execute(Profile& profile) {
    ProfileList list = storage->read();
    const bool exists = list.existById(profile.getId());
    const DateTime::DateTime now = clock->now();
    profile.setLastModificationTime(now);
    if (exists) {
        list.update(profile);
    } else {
        profile.setCreationTime(now);
        list.add(profile);
    }
    storage->write(list);
}

} // namespace norel::Desktop::Domain::Payloads::UseCase

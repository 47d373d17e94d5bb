#include "norel/Desktop/Domain/Payloads/UseCase/DeleteProfile.h"

#include "CheckNotNull.h"

namespace norel::Desktop::Domain::Payloads::UseCase {

DeleteProfile::DeleteProfile(const std::shared_ptr<ProfileListStorage>& profileListStorage)
    : profileListStorage(profileListStorage) {
    checkNotNull(profileListStorage, "profile list storage");
}

void DeleteProfile::execute(unsigned int id) {
    ProfileList list = profileListStorage->read();
    if (!list.existById(id))
        return;
    list.remove(id);
    profileListStorage->write(list);
}

} // namespace norel::Desktop::Domain::Payloads::UseCase

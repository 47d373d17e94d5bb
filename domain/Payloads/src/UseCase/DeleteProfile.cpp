#include "norel/Desktop/Domain/Payloads/UseCase/DeleteProfile.h"

#include "CheckNotNull.h"

namespace norel::Desktop::Domain::Payloads::UseCase {

DeleteProfile::DeleteProfile(const std::shared_ptr<ProfileListStorage>& profileListStorage)
    : storage(profileListStorage) {
    checkNotNull(profileListStorage, "profile list storage");
}

void DeleteProfile::execute(unsigned int id) {
    ProfileList list = storage->read();
    if (!list.existById(id))
        return;
    list.remove(id);
    storage->write(list);
}

} // namespace norel::Desktop::Domain::Payloads::UseCase

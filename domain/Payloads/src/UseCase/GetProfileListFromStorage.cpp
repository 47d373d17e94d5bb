#include "norel/Desktop/Domain/Payloads/UseCase/GetProfileListFromStorage.h"

#include "CheckNotNull.h"

namespace norel::Desktop::Domain::Payloads::UseCase {

GetProfileListFromStorage::GetProfileListFromStorage(
    const std::shared_ptr<ProfileListStorage>& profileListStorage)
    : storage(profileListStorage) {
    checkNotNull(profileListStorage, "profile list storage");
}

ProfileList GetProfileListFromStorage::execute() { return storage->read(); }

} // namespace norel::Desktop::Domain::Payloads::UseCase

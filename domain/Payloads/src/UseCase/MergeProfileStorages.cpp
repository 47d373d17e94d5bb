#include "norel/Desktop/Domain/Payloads/UseCase/MergeProfileStorages.h"

#include "CheckNotNull.h"

namespace norel::Desktop::Domain::Payloads::UseCase {

MergeProfileStorages::MergeProfileStorages(const std::shared_ptr<ProfileListStorage>& sourceStorage,
                                           const std::shared_ptr<ProfileListStorage>& destinationStorage)
    : sourceStorage(sourceStorage), destinationStorage(destinationStorage) {
    checkNotNull(sourceStorage, "profile list source storage");
    checkNotNull(destinationStorage, "profile list destination storage");
}

void MergeProfileStorages::execute() {
    const ProfileList source = sourceStorage->read();
    ProfileList destination = destinationStorage->read();
    for (Profile profile : source)
        if (!destination.existByName(profile.getName()))
            destination.add(profile);
    destinationStorage->write(destination);
}

} // namespace norel::Desktop::Domain::Payloads::UseCase

#include "norel/Desktop/Domain/Payloads/UseCase/MergeProfileStorages.h"

#include "CheckNotNull.h"

#include <string>
#include <unordered_set>

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
    std::unordered_set<std::string> names;
    for (const Profile& profile : destination)
        names.insert(profile.getName());
    for (Profile profile : source)
        if (names.insert(profile.getName()).second)
            destination.add(profile);
    destinationStorage->write(destination);
}

} // namespace norel::Desktop::Domain::Payloads::UseCase

#include "norel/Desktop/Domain/Payloads/UseCase/MergeProfileStorages.h"

#include "CheckNotNull.h"

#include <string>
#include <unordered_set>

namespace norel::Desktop::Domain::Payloads::UseCase {

MergeProfileStorages::MergeProfileStorages(const std::shared_ptr<ProfileListStorage>& sourceStorage,
                                           const std::shared_ptr<ProfileListStorage>& destinationStorage)
    : source(sourceStorage), destination(destinationStorage) {
    checkNotNull(sourceStorage, "profile list source storage");
    checkNotNull(destinationStorage, "profile list destination storage");
}

void MergeProfileStorages::execute() {
    const ProfileList additions = source->read();
    ProfileList merged = destination->read();
    std::unordered_set<std::string> names;
    for (const Profile& profile : merged)
        names.insert(profile.getName());
    for (Profile profile : additions)
        if (names.insert(profile.getName()).second)
            merged.add(profile);
    destination->write(merged);
}

} // namespace norel::Desktop::Domain::Payloads::UseCase

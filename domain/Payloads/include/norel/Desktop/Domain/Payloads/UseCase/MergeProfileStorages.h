#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

#include <memory>

namespace norel::Desktop::Domain::Payloads::UseCase {

/// Copies the profiles of a source whose names the destination lacks to the destination. One
/// read-modify-write cycle, not atomic.
class NOREL_PAYLOADS_EXPORT MergeProfileStorages {
public:
    /// Throws std::runtime_error that names the first pointer that is null.
    MergeProfileStorages(const std::shared_ptr<ProfileListStorage>& sourceStorage,
                         const std::shared_ptr<ProfileListStorage>& destinationStorage);

    /// Names are compared byte for byte; of several source profiles with one name the first is copied.
    /// Profiles of the destination are not changed; a copied profile keeps its times, and its id if that
    /// is free. The destination is written even when nothing is added. Throws what the storages throw.
    void execute();

private:
    std::shared_ptr<ProfileListStorage> source;
    std::shared_ptr<ProfileListStorage> destination;
};

} // namespace norel::Desktop::Domain::Payloads::UseCase

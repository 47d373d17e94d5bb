#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

#include <memory>

namespace norel::Desktop::Domain::Payloads::UseCase {

/// Deletes a stored profile. One read-modify-write cycle, not atomic.
class NOREL_PAYLOADS_EXPORT DeleteProfile {
public:
    /// Throws std::runtime_error that names the first pointer that is null.
    explicit DeleteProfile(const std::shared_ptr<ProfileListStorage>& profileListStorage);

    /// Writes the storage only when it has a profile with that id. Throws what the storage throws.
    void execute(unsigned int id);

private:
    std::shared_ptr<ProfileListStorage> storage;
};

} // namespace norel::Desktop::Domain::Payloads::UseCase

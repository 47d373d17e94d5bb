#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

#include <memory>

namespace norel::Desktop::Domain::Payloads::UseCase {

/// Fetches the whole list of a storage.
class NOREL_PAYLOADS_EXPORT GetProfileListFromStorage {
public:
    /// Throws std::runtime_error that names the first pointer that is null.
    explicit GetProfileListFromStorage(const std::shared_ptr<ProfileListStorage>& profileListStorage);

    /// Throws what the storage throws.
    ProfileList execute();

private:
    std::shared_ptr<ProfileListStorage> storage;
};

} // namespace norel::Desktop::Domain::Payloads::UseCase

#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

/// Stores a whole profile list. A storage caches nothing between calls: every read fetches the current
/// document, every write replaces all of it. Errors have the unchanged message of their cause.
///
/// Threads: a storage does no locking; the application must serialize access to a document.
class NOREL_PAYLOADS_EXPORT ProfileListStorage {
public:
    /// The document exists but is not a profile-list document.
    struct NOREL_PAYLOADS_EXPORT InvalidContent : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// The document could not be obtained, or a profile in it violates a rule of the model.
    struct NOREL_PAYLOADS_EXPORT CannotReadProfileList : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    struct NOREL_PAYLOADS_EXPORT CannotWriteProfileList : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    struct NOREL_PAYLOADS_EXPORT CannotRemoveProfileList : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    ProfileListStorage() = default;
    ProfileListStorage(const ProfileListStorage&) = default;
    ProfileListStorage& operator=(const ProfileListStorage&) = default;
    virtual ~ProfileListStorage();

    /// Removes the document. Throws CannotRemoveProfileList.
    virtual void remove() = 0;

    /// Throws InvalidContent or CannotReadProfileList.
    virtual ProfileList read() = 0;

    /// Throws CannotWriteProfileList.
    virtual void write(const ProfileList& list) = 0;
};

} // namespace norel::Desktop::Domain::Payloads

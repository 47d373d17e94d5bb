#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

/// Where a whole profile list is kept. A storage holds no list between calls: every read fetches the current
/// document, every write replaces it whole. Each error carries the text of its cause unchanged.
///
/// Threads: a storage has no lock of its own; the application keeps apart the calls that share a document.
class NOREL_PAYLOADS_EXPORT ProfileListStorage {
public:
    /// The document is there but is no profile-list document.
    struct NOREL_PAYLOADS_EXPORT InvalidContent : std::runtime_error {
        using std::runtime_error::runtime_error;
        InvalidContent(const InvalidContent&) = default;
        InvalidContent& operator=(const InvalidContent&) = default;
        ~InvalidContent() override;
    };

    /// The document could not be obtained, or a profile in it breaks a rule of the model.
    struct NOREL_PAYLOADS_EXPORT CannotReadProfileList : std::runtime_error {
        using std::runtime_error::runtime_error;
        CannotReadProfileList(const CannotReadProfileList&) = default;
        CannotReadProfileList& operator=(const CannotReadProfileList&) = default;
        ~CannotReadProfileList() override;
    };

    struct NOREL_PAYLOADS_EXPORT CannotWriteProfileList : std::runtime_error {
        using std::runtime_error::runtime_error;
        CannotWriteProfileList(const CannotWriteProfileList&) = default;
        CannotWriteProfileList& operator=(const CannotWriteProfileList&) = default;
        ~CannotWriteProfileList() override;
    };

    struct NOREL_PAYLOADS_EXPORT CannotRemoveProfileList : std::runtime_error {
        using std::runtime_error::runtime_error;
        CannotRemoveProfileList(const CannotRemoveProfileList&) = default;
        CannotRemoveProfileList& operator=(const CannotRemoveProfileList&) = default;
        ~CannotRemoveProfileList() override;
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

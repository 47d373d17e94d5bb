#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

namespace norel::Desktop::Domain::Payloads {

/// The factory profiles of the supported products; read only. Thread-safe.
class NOREL_PAYLOADS_EXPORT ProfileListDefaultProductsStorage : public ProfileListStorage {
public:
    /// Not supported: throws the host's unreachable-code error.
    void remove() override;

    ProfileList read() override;

    /// Not supported: throws the host's unreachable-code error.
    void write(const ProfileList& list) override;
};

} // namespace norel::Desktop::Domain::Payloads

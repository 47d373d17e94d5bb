#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileListSerializer.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

namespace norel::Desktop::Domain::Payloads {

/// Runs the read of a storage, translating its errors into storage errors with the same text.
template <typename Read>
ProfileList withReadErrors(const Read& read) {
    try {
        return read();
    } catch (const ProfileListSerializer::ParsingError& error) {
        throw ProfileListStorage::InvalidContent(error.what());
    } catch (const std::exception& error) {
        throw ProfileListStorage::CannotReadProfileList(error.what());
    }
}

} // namespace norel::Desktop::Domain::Payloads

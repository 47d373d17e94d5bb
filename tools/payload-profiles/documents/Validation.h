#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileListValidator.h"

#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

using Domain::Payloads::ProfileListValidator;

/// What validation found in the text of a file.
struct Validation {
    /// Of a document that only an upgrade makes readable; what else was found is then left out.
    std::optional<unsigned int> oldVersion;
    ProfileListValidator::Result result;

    std::size_t count(ProfileListValidator::Severity severity) const;
};

/// `progress` may be empty. Throws only std::bad_alloc and what `progress` throws.
Validation validateDocument(const std::string& text, const ProfileListValidator::Progress& progress);

/// The members that are lost when the document is read and written again.
std::vector<ProfileListValidator::Finding> findDroppedMembers(const std::string& text);

/// Where the document has the error with which the serializer refuses it.
std::optional<ProfileListValidator::Finding> findError(const std::string& text, const std::string& message);

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileListValidator.h"

#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

using Domain::Payloads::ProfileListValidator;

/// What validation found in the text of a file.
struct Validation {
    /// Of a document that only an upgrade makes readable.
    std::optional<unsigned int> oldVersion;
    ProfileListValidator::Result result; ///< as a document of its version

    std::size_t count(ProfileListValidator::Severity severity) const;
};

/// `progress` may be empty. Throws only std::bad_alloc and what `progress` throws.
Validation validateDocument(const std::string& text, const ProfileListValidator::Progress& progress);

/// The members that are lost when the document is read and written again.
std::vector<ProfileListValidator::Finding> findDroppedMembers(const std::string& text);

/// The version of a document that is of an earlier one. Empty when it is of the current version, or its
/// version is not certain.
std::optional<unsigned int> findOldVersion(const std::string& text);

/// Where a document of a version has the error with which the serializer refuses it, or what its upgrade
/// gives.
std::optional<ProfileListValidator::Finding> findError(const std::string& text, unsigned int version,
                                                       const std::string& message);

/// How to upgrade a document of an earlier version, in printable text.
std::string describeOldVersion(const std::string& file, unsigned int version);

} // namespace norel::Desktop::PayloadProfiles

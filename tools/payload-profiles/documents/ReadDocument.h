#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileListSerializer.h"

#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Reads the document of a file as the serializer does. Errors about a part of it are thrown as
/// std::runtime_error, which names the path and the line, and the command that upgrades a document of an
/// earlier version; others as they are.
Domain::Payloads::ProfileList readDocument(const Domain::Payloads::ProfileListSerializer& serializer,
                                           const std::string& text, const std::string& file);

/// An error of the serializer about a document of a version, or what its upgrade gives, with the path and the
/// line in `text`, as far as they are known.
std::string describeError(const std::string& text, unsigned int version, const std::string& message);

/// The paths and lines of the members that are lost when a document is read and written again, separated by
/// commas; empty when there are none.
std::string listDropped(const std::string& text);

/// Throws std::runtime_error, which names them, for a document that has such members.
void requireNothingDropped(const std::string& text);

} // namespace norel::Desktop::PayloadProfiles

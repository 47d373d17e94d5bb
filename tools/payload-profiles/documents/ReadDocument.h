#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileListSerializer.h"

#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Reads a document as the serializer does. Errors about a part of it are thrown as std::runtime_error, which
/// names the path and the line; others as they are.
Domain::Payloads::ProfileList readDocument(const Domain::Payloads::ProfileListSerializer& serializer,
                                           const std::string& text);

/// Throws std::runtime_error, which names paths and lines, for a document with members that would be lost if
/// it were written again.
void requireNothingDropped(const std::string& text);

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"

#include <string>

namespace norel::Desktop::Domain::Payloads {

/// A JSON Schema (2020-12) of the profile-list document of the current version, for editors and for programs
/// in other languages: the kinds of all members, which of them are required, the texts and numbers that are
/// allowed, and a description of each.
///
/// Every document that the library writes satisfies it. A document that satisfies it may still violate a rule
/// that relates members, such as a value outside its own bounds, or be one that the reader tolerates although
/// it does not satisfy it, such as a fraction for an integer. Thread-safe.
NOREL_PAYLOADS_EXPORT std::string makeProfileListSchema();

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include <set>
#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Why the text is not an id in decimal digits; empty when it is one.
std::string checkId(const std::string& text);

/// The id in a text that passed checkId.
unsigned int parseId(const std::string& text);

/// Throws Failure of `subject`, whose message ends with `consequence`, unless the list has all of the ids.
void requireProfiles(const Domain::Payloads::ProfileList& list, const std::set<unsigned int>& ids,
                     const std::string& subject, const std::string& consequence = "");

/// `88 "Name"`, printable.
std::string describe(const Domain::Payloads::Profile& profile);

} // namespace norel::Desktop::PayloadProfiles

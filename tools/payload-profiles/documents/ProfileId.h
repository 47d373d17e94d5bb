#pragma once

#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Why the text is not an id in decimal digits; empty when it is one.
std::string checkId(const std::string& text);

/// The id in a text that passed checkId.
unsigned int parseId(const std::string& text);

/// `88 "Name"`, printable.
std::string describe(const Domain::Payloads::Profile& profile);

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Why the text is not the decimal number of a profile; empty when it is one.
std::string checkId(const std::string& text);

/// The id that a checked text gives.
unsigned int parseId(const std::string& text);

/// `88 "Name"`, printable.
std::string describe(const Domain::Payloads::Profile& profile);

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// All of a profile, the `index`-th of its document, for people: in the colours and width of the terminal.
std::string makeTextReport(const Domain::Payloads::Profile& profile, unsigned int index);

/// The same as a JSON text.
std::string makeJsonReport(const Domain::Payloads::Profile& profile, unsigned int index);

/// An object of what tells a profile from others: id, names, serial number and times.
DataFormat::Json makeJsonIdentity(const Domain::Payloads::Profile& profile);

/// Of the cameras, in their order.
std::vector<std::string> listOrientations(const Domain::Payloads::Profile& profile);

} // namespace norel::Desktop::PayloadProfiles

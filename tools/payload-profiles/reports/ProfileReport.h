#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// Everything in a profile as text, in the colours and width of the terminal. `index` is its position in the
/// document.
std::string makeTextReport(const Domain::Payloads::Profile& profile, unsigned int index);

/// The same as JSON.
std::string makeJsonReport(const Domain::Payloads::Profile& profile, unsigned int index);

/// A line for each profile, in the colours and width of the terminal.
std::string makeTextList(const Domain::Payloads::ProfileList& list);

/// The same as JSON.
std::string makeJsonList(const Domain::Payloads::ProfileList& list);

/// A JSON object that identifies a profile: id, names, serial number and time stamps.
DataFormat::Json makeJsonIdentity(const Domain::Payloads::Profile& profile);

/// The orientations of the cameras, in the order of the cameras.
std::vector<std::string> listOrientations(const Domain::Payloads::Profile& profile);

} // namespace norel::Desktop::PayloadProfiles

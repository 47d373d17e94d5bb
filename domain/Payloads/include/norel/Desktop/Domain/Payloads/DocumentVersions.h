#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"

#include <string>
#include <vector>

/// The versions of the profile-list document, numbered without gaps. A document carries no version number;
/// it follows from the sections of the lidar profiles. Thread-safe.
namespace norel::Desktop::Domain::Payloads::DocumentVersions {

/// A section of a profile object, as the path of keys to it.
using Section = std::vector<std::string>;

/// The oldest version that can be upgraded.
NOREL_PAYLOADS_EXPORT unsigned int getFirst();

/// The version that the library reads and writes.
NOREL_PAYLOADS_EXPORT unsigned int getCurrent();

/// The sections that a version added, in the order in which its upgrade step copies them; none for the first
/// version and for an unknown one.
NOREL_PAYLOADS_EXPORT std::vector<Section> getSections(unsigned int version);

} // namespace norel::Desktop::Domain::Payloads::DocumentVersions

#include "norel/Desktop/Domain/Payloads/MountingAngles3.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

MountingAngles3 MountingAngles3::Builder::build() const { return buildLastToFirst<MountingAngles3>(*this); }

} // namespace norel::Desktop::Domain::Payloads

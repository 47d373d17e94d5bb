#include "norel/Desktop/Domain/Payloads/CameraAngles3.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

CameraAngles3 CameraAngles3::Builder::build() const { return buildLastToFirst<CameraAngles3>(*this); }

} // namespace norel::Desktop::Domain::Payloads

#include "norel/Desktop/Domain/Payloads/Vector3.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

Vector3 Vector3::Builder::build() const { return buildLastToFirst<Vector3>(*this); }

} // namespace norel::Desktop::Domain::Payloads

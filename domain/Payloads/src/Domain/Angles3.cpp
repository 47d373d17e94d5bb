#include "norel/Desktop/Domain/Payloads/Angles3.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

Angles3 Angles3::Builder::build() const { return buildLastToFirst<Angles3>(*this); }

} // namespace norel::Desktop::Domain::Payloads

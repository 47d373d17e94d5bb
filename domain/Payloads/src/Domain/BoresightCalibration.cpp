#include "norel/Desktop/Domain/Payloads/BoresightCalibration.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

BoresightCalibration BoresightCalibration::Builder::build() const {
    return buildLastToFirst<BoresightCalibration>(*this);
}

} // namespace norel::Desktop::Domain::Payloads

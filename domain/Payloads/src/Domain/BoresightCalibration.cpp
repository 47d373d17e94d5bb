#include "norel/Desktop/Domain/Payloads/BoresightCalibration.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

BoresightCalibration BoresightCalibration::Builder::build() const {
    return buildLastToFirst<BoresightCalibration>(fieldOfView, initialBoresightAngles, numberOfCriteria,
                                                  leverArmAccuracy, positionAccuracy, attitudeAccuracy,
                                                  lidarAccuracy);
}

} // namespace norel::Desktop::Domain::Payloads

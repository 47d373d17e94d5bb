#include "norel/Desktop/Domain/Payloads/Georeferencing.h"

#include "Building.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

CalibrationDocument CalibrationDocument::Builder::build() const {
    return buildPlain<CalibrationDocument>(*this);
}

void Georeferencing::checkRules() const {
    if (!fields.boresightAngles && !fields.calibrationDocument)
        throw std::runtime_error(
            "Georeferencing information of a profile requires either boresight angles or a "
            "calibration document.");
}

Georeferencing Georeferencing::Builder::build() const { return buildLastToFirst<Georeferencing>(*this); }

} // namespace norel::Desktop::Domain::Payloads

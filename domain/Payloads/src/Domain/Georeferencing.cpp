#include "norel/Desktop/Domain/Payloads/Georeferencing.h"

#include "Building.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

CalibrationDocument CalibrationDocument::Builder::build() const { return CalibrationDocument(Fields(*this)); }

Georeferencing::Georeferencing(Fields&& fields) : fields(std::move(fields)) {
    if (!this->fields.boresightAngles && !this->fields.calibrationDocument)
        throw std::runtime_error(
            "Georeferencing information of a profile requires either boresight angles or a "
            "calibration document.");
}

Georeferencing Georeferencing::Builder::build() const {
    return buildLastToFirst<Georeferencing>(fieldOfViews, boresightAngles, calibrationDocument);
}

} // namespace norel::Desktop::Domain::Payloads

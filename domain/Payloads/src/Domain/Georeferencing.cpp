#include "norel/Desktop/Domain/Payloads/Georeferencing.h"

#include "Building.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

CalibrationDocument CalibrationDocument::Builder::build() const {
    return buildPlain<CalibrationDocument>(*this);
}

void checkRules(const Georeferencing::Builder& builder, RuleCheck& check) {
    if (!builder.boresightAngles && !builder.calibrationDocument)
        check.fail(nullptr,
                   std::runtime_error(
                       "Georeferencing information of a profile requires either boresight angles or a "
                       "calibration document."));
}

Georeferencing Georeferencing::Builder::build() const { return buildLastToFirst<Georeferencing>(*this); }

} // namespace norel::Desktop::Domain::Payloads

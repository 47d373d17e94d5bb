#include "norel/Desktop/Domain/Payloads/Cameras.h"

#include "AllowedValues.h"
#include "Building.h"

#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

void checkFields(const Camera::Builder& builder) {
    if (!isOneOf(AllowedValues::ORIENTATIONS, builder.orientation))
        throw std::invalid_argument("Profile Camera: orientation \"" + shortened(builder.orientation) +
                                    "\" is invalid");
}

Camera Camera::Builder::build() const { return buildLastToFirst<Camera>(*this); }

void Cameras::checkRules() const {
    std::set<std::string> orientations;
    for (const Camera& camera : fields.listOfCameras)
        if (!orientations.insert(camera.getOrientation()).second)
            throw std::invalid_argument("Profile Cameras: camera with orientation \"" +
                                        camera.getOrientation() + "\" appears more than once");
}

Cameras Cameras::Builder::build() const { return buildFirstToLast<Cameras>(*this); }

} // namespace norel::Desktop::Domain::Payloads

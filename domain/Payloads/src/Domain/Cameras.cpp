#include "norel/Desktop/Domain/Payloads/Cameras.h"

#include "AllowedValues.h"
#include "Building.h"

#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

void checkFields(const Camera::Builder& builder, RuleCheck& check) {
    if (!isOneOf(AllowedValues::ORIENTATIONS, builder.orientation))
        check.fail(&builder.orientation,
                   std::invalid_argument("Profile Camera: orientation \"" + shortened(builder.orientation) +
                                         "\" is invalid"),
                   AllowedValues::ORIENTATIONS);
}

Camera Camera::Builder::build() const { return buildLastToFirst<Camera>(*this); }

void checkRules(const Cameras::Builder& builder, RuleCheck& check) {
    std::set<std::string> orientations;
    for (const Camera::Builder& camera : builder.listOfCameras)
        if (check.isKnown(&camera.orientation) && !orientations.insert(camera.orientation).second)
            check.fail(&camera.orientation,
                       std::invalid_argument("Profile Cameras: camera with orientation \"" +
                                             camera.orientation + "\" appears more than once"));
}

Cameras Cameras::Builder::build() const { return buildFirstToLast<Cameras>(*this); }

} // namespace norel::Desktop::Domain::Payloads

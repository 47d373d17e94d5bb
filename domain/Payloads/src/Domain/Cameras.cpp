#include "norel/Desktop/Domain/Payloads/Cameras.h"

#include "Building.h"

#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {
namespace {

constexpr std::array<std::string_view, 6> ORIENTATIONS{"a-left", "d-right", "w-front",
                                                       "x-rear", "s-nadir", "nadir"};

} // namespace

void checkFields(const Camera::Builder& builder) {
    if (!isOneOf(ORIENTATIONS, builder.orientation))
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

#include "norel/Desktop/Domain/Payloads/Cameras.h"

#include "Building.h"

#include <set>
#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {
namespace {

constexpr std::array<std::string_view, 6> ORIENTATIONS{"a-left", "d-right", "w-front",
                                                       "x-rear", "s-nadir", "nadir"};

} // namespace

Camera Camera::Builder::build() const {
    if (!isOneOf(ORIENTATIONS, orientation))
        throw std::invalid_argument("Profile Camera: orientation \"" + orientation + "\" is invalid");
    return buildLastToFirst<Camera>(orientation, leverArm, boresightAngles, kappaCardinal, eventTimeShift);
}

Cameras::Cameras(Fields&& fields) : fields(std::move(fields)) {
    std::set<std::string> orientations;
    for (const Camera& camera : this->fields.listOfCameras)
        if (!orientations.insert(camera.getOrientation()).second)
            throw std::invalid_argument("Profile Cameras: camera with orientation \"" +
                                        camera.getOrientation() + "\" appears more than once");
}

Cameras Cameras::Builder::build() const { return buildFirstToLast<Cameras>(listOfCameras); }

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/CameraAngles3.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"
#include "norel/Desktop/Domain/Payloads/Vector3.h"

#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// A camera of a payload.
class NOREL_PAYLOADS_EXPORT Camera {
public:
    struct Builder;

    /// the viewing direction: "a-left", "d-right", "w-front", "x-rear", "s-nadir" or "nadir"
    std::string getOrientation() const { return fields.orientation; }
    Vector3 getLeverArm() const { return fields.leverArm; }                       ///< "m"
    CameraAngles3 getBoresightAngles() const { return fields.boresightAngles; }   ///< "arcmin"
    Parameter<int> getKappaCardinal() const { return fields.kappaCardinal; }      ///< "deg"
    Parameter<double> getEventTimeShift() const { return fields.eventTimeShift; } ///< "sec"

    bool operator==(const Camera&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        std::string orientation;
        Vector3 leverArm;
        CameraAngles3 boresightAngles;
        Parameter<int> kappaCardinal;
        Parameter<double> eventTimeShift;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Camera(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Checks the orientation first; a default-constructed Builder is not valid.
struct NOREL_PAYLOADS_EXPORT Camera::Builder {
    std::string orientation;
    Vector3::Builder leverArm;
    CameraAngles3::Builder boresightAngles;
    Parameter<int>::Builder kappaCardinal;
    Parameter<double>::Builder eventTimeShift;

    Camera build() const;
};

/// The cameras of a payload in the given order, at most one of each orientation.
class NOREL_PAYLOADS_EXPORT Cameras {
public:
    struct Builder;

    /// A reference that is valid as long as this value; for a temporary value, a copy.
    const std::vector<Camera>& getListOfCameras() const& { return fields.listOfCameras; }
    std::vector<Camera> getListOfCameras() && { return std::move(fields.listOfCameras); }

    bool operator==(const Cameras&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        std::vector<Camera> listOfCameras;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Cameras(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Throws std::invalid_argument also for a duplicate orientation. The list may be empty.
struct NOREL_PAYLOADS_EXPORT Cameras::Builder {
    std::vector<Camera::Builder> listOfCameras;

    Cameras build() const;
};

} // namespace norel::Desktop::Domain::Payloads

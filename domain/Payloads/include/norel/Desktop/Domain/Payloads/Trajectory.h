#pragma once

#include "norel/Desktop/Domain/Payloads/Access.h"
#include "norel/Desktop/Domain/Payloads/Cameras.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/MountingAngles3.h"
#include "norel/Desktop/Domain/Payloads/Vector3.h"

#include <optional>
#include <string>

namespace norel::Desktop::Domain::Payloads {

/// An inertial measurement unit with its GNSS receiver, as mounted in the payload.
class NOREL_PAYLOADS_EXPORT Imu {
public:
    struct Builder;

    Vector3 getLeverArm() const { return fields.leverArm; }                     ///< "m"
    Vector3 getLeverArmAntenna() const { return fields.leverArmAntenna; }       ///< of the GNSS antenna, "m"
    MountingAngles3 getMountingAngles() const { return fields.mountingAngles; } ///< "deg"
    /// relative to the aircraft, "deg"
    MountingAngles3 getMountingAnglesAircraft() const { return fields.mountingAnglesAircraft; }
    /// "SDLessthan3cm", "SD10cm", "SD50cm", "SD1m" or "SD10m"
    std::string getGnssStandardDeviation() const { return fields.gnssStandardDeviation; }

    bool operator==(const Imu&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Vector3 leverArm;
        Vector3 leverArmAntenna;
        MountingAngles3 mountingAngles;
        MountingAngles3 mountingAnglesAircraft;
        std::string gnssStandardDeviation;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Imu(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Checks the GNSS standard deviation first; a default-constructed Builder is not valid.
struct NOREL_PAYLOADS_EXPORT Imu::Builder {
    Vector3::Builder leverArm;
    Vector3::Builder leverArmAntenna;
    MountingAngles3::Builder mountingAngles;
    MountingAngles3::Builder mountingAnglesAircraft;
    std::string gnssStandardDeviation;

    Imu build() const;
};

/// The trajectory sensors of a payload.
class NOREL_PAYLOADS_EXPORT Trajectory {
public:
    struct Builder;

    // Compiled once, as those of Profile.
    Trajectory(const Trajectory&);
    Trajectory(Trajectory&&) noexcept;
    Trajectory& operator=(const Trajectory&);
    Trajectory& operator=(Trajectory&&) noexcept;
    ~Trajectory();

    Imu getImuOnboard() const { return fields.imuOnboard; }
    /// empty when the payload has none
    std::optional<Imu> getImuExternal() const { return fields.imuExternal; }
    Cameras getCameras() const { return fields.cameras; } ///< may be empty
    /// "none" or "synthetize gimbal data"
    std::string getStabilizedMount() const { return fields.stabilizedMount; }

    bool operator==(const Trajectory&) const = default;

private:
    friend ValueAccess;

    struct Fields {
        Imu imuOnboard;
        std::optional<Imu> imuExternal;
        Cameras cameras;
        std::string stabilizedMount;
        bool operator==(const Fields&) const = default;
    };

    template <typename MakeFields>
    explicit Trajectory(const MakeFields& makeFields) : fields(makeFields()) {}

    Fields fields;
};

/// Checks the stabilized mount first; a default-constructed Builder is not valid.
struct NOREL_PAYLOADS_EXPORT Trajectory::Builder {
    Imu::Builder imuOnboard;
    std::optional<Imu::Builder> imuExternal;
    Cameras::Builder cameras;
    std::string stabilizedMount;

    Trajectory build() const;
};

} // namespace norel::Desktop::Domain::Payloads

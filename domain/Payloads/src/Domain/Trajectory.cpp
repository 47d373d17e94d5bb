#include "norel/Desktop/Domain/Payloads/Trajectory.h"

#include "Building.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {
namespace {

constexpr std::array<std::string_view, 5> GNSS_STANDARD_DEVIATIONS{"SDLessthan3cm", "SD10cm", "SD50cm",
                                                                   "SD1m", "SD10m"};
constexpr std::array<std::string_view, 2> STABILIZED_MOUNTS{"none", "synthetize gimbal data"};

} // namespace

Imu Imu::Builder::build() const {
    if (!isOneOf(GNSS_STANDARD_DEVIATIONS, gnssStandardDeviation))
        throw std::invalid_argument("Profile Imu: GNSS standard deviation \"" + gnssStandardDeviation +
                                    "\" is invalid");
    return buildLastToFirst<Imu>(leverArm, leverArmAntenna, mountingAngles, mountingAnglesAircraft,
                                 gnssStandardDeviation);
}

Trajectory Trajectory::Builder::build() const {
    if (!isOneOf(STABILIZED_MOUNTS, stabilizedMount))
        throw std::invalid_argument("Profile Trajectory: stabilized mount \"" + stabilizedMount +
                                    "\" is invalid");
    return buildLastToFirst<Trajectory>(imuOnboard, imuExternal, cameras, stabilizedMount);
}

} // namespace norel::Desktop::Domain::Payloads

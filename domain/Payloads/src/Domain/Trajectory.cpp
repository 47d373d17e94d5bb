#include "norel/Desktop/Domain/Payloads/Trajectory.h"

#include "Building.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {
namespace {

constexpr std::array<std::string_view, 5> GNSS_STANDARD_DEVIATIONS{"SDLessthan3cm", "SD10cm", "SD50cm",
                                                                   "SD1m", "SD10m"};
constexpr std::array<std::string_view, 2> STABILIZED_MOUNTS{"none", "synthetize gimbal data"};

} // namespace

void checkFields(const Imu::Builder& builder) {
    if (!isOneOf(GNSS_STANDARD_DEVIATIONS, builder.gnssStandardDeviation))
        throw std::invalid_argument("Profile Imu: GNSS standard deviation \"" +
                                    shortened(builder.gnssStandardDeviation) + "\" is invalid");
}

Imu Imu::Builder::build() const { return buildLastToFirst<Imu>(*this); }

void checkFields(const Trajectory::Builder& builder) {
    if (!isOneOf(STABILIZED_MOUNTS, builder.stabilizedMount))
        throw std::invalid_argument("Profile Trajectory: stabilized mount \"" +
                                    shortened(builder.stabilizedMount) + "\" is invalid");
}

Trajectory Trajectory::Builder::build() const { return buildLastToFirst<Trajectory>(*this); }

} // namespace norel::Desktop::Domain::Payloads

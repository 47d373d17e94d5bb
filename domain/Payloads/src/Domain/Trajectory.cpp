#include "norel/Desktop/Domain/Payloads/Trajectory.h"

#include "AllowedValues.h"
#include "Building.h"

#include <stdexcept>

namespace norel::Desktop::Domain::Payloads {

void checkFields(const Imu::Builder& builder, RuleCheck& check) {
    if (!isOneOf(AllowedValues::GNSS_STANDARD_DEVIATIONS, builder.gnssStandardDeviation))
        check.fail(&builder.gnssStandardDeviation,
                   std::invalid_argument("Profile Imu: GNSS standard deviation \"" +
                                         shortened(builder.gnssStandardDeviation) + "\" is invalid"),
                   AllowedValues::GNSS_STANDARD_DEVIATIONS);
}

Imu Imu::Builder::build() const { return buildLastToFirst<Imu>(*this); }

void checkFields(const Trajectory::Builder& builder, RuleCheck& check) {
    if (!isOneOf(AllowedValues::STABILIZED_MOUNTS, builder.stabilizedMount))
        check.fail(&builder.stabilizedMount,
                   std::invalid_argument("Profile Trajectory: stabilized mount \"" +
                                         shortened(builder.stabilizedMount) + "\" is invalid"),
                   AllowedValues::STABILIZED_MOUNTS);
}

Trajectory::Trajectory(const Trajectory&) = default;
Trajectory::Trajectory(Trajectory&&) noexcept = default;
Trajectory& Trajectory::operator=(const Trajectory&) = default;
Trajectory& Trajectory::operator=(Trajectory&&) noexcept = default;
Trajectory::~Trajectory() = default;

Trajectory Trajectory::Builder::build() const { return buildLastToFirst<Trajectory>(*this); }

} // namespace norel::Desktop::Domain::Payloads

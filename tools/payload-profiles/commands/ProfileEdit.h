#pragma once

#include "norel/Desktop/Domain/Payloads/Profile.h"
#include "reports/ProfileMembers.h"

#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// A new value for a member of a profile.
struct Assignment {
    std::string path;  ///< such as "lidar.imu_latency"; a parameter stands for its value
    std::string value; ///< "@NAME" for the preset of a parameter
};

/// Whether a member can be assigned: not the id and the time of the last change, which commands set.
bool isChangeable(const ProfileMember& member);

// The functions below return a changed copy of a profile, or throw std::runtime_error, which names the path.
// A path may be written as in messages ("trajectory.cameras.[0].lever_arm.x") or as in JSON tools
// (".trajectory.cameras[0].lever_arm.x").

/// The profile with all assignments applied, in any order, before any rule is checked.
Domain::Payloads::Profile withAssignments(const Domain::Payloads::Profile& profile,
                                          const std::vector<Assignment>& assignments);

/// The profile with the parameters at or below the paths, all where there is no path, set to their defaults.
Domain::Payloads::Profile withDefaults(const Domain::Payloads::Profile& profile,
                                       const std::vector<std::string>& paths);

/// The profile with the values at the paths taken from the factory profile, all but its identity where there
/// is no path.
Domain::Payloads::Profile withFactoryValues(const Domain::Payloads::Profile& profile,
                                            const Domain::Payloads::Profile& factory,
                                            const std::vector<std::string>& paths);

} // namespace norel::Desktop::PayloadProfiles

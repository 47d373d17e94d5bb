#pragma once

#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads::Test {

/// A list of one profile that has every optional member.
ProfileList makeFullList();

/// The smallest profile: no lidar, no cameras, no external IMU.
inline Profile::Builder makeProfile(unsigned int id, const std::string& name) {
    Profile::Builder builder;
    builder.id = id;
    builder.name = name;
    builder.product = "Tessaly Alpha";
    builder.trajectory.stabilizedMount = "none";
    builder.trajectory.imuOnboard.gnssStandardDeviation = "SD1m";
    return builder;
}

/// A list of such profiles with the ids and names given.
inline ProfileList makeList(const std::vector<std::pair<unsigned int, std::string>>& profiles) {
    ProfileList list;
    for (const auto& [id, name] : profiles) {
        Profile profile = makeProfile(id, name).build();
        list.add(profile);
    }
    return list;
}

/// The ids and names of a list in its order.
inline std::vector<std::pair<unsigned int, std::string>> idsAndNames(const ProfileList& list) {
    std::vector<std::pair<unsigned int, std::string>> result;
    for (const Profile& profile : list.list())
        result.emplace_back(profile.getId(), profile.getName());
    return result;
}

} // namespace norel::Desktop::Domain::Payloads::Test

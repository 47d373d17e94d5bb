#pragma once

#include "commands/Arguments.h"
#include "commands/Context.h"

#include <functional>

namespace norel::Desktop::PayloadProfiles {

/// The profile that a command changes.
struct ProfileToChange {
    std::string file;
    std::string id;
    ChangeOptions options;
};

/// The profiles of a source that are copied to a file. Shows which members of it are not known and thus are
/// left out. Throws Failure.
ProfileList readProfilesToCopy(Context& context, const Source& source);

/// Adds the arguments FILE and ID and the options of a command that changes a file.
void addProfileToChange(Command command, ProfileToChange& profile);

/// Replaces a profile by the result of `change` and prints what differs. The file is unchanged when `change`
/// throws, whose exceptions become a Failure of the file, and when nothing differs.
void changeProfile(Context& context, const ProfileToChange& target,
                   const std::function<Profile(const Profile&)>& change);

} // namespace norel::Desktop::PayloadProfiles

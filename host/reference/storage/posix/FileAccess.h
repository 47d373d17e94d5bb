#pragma once

#include "Operation.h"

#include <filesystem>
#include <functional>
#include <string>

namespace norel::Desktop::Storage {

/// Gives the new file `to`, which is its owner's alone so far, the owner, group, mode, access control list
/// and extended attributes of the open file `from`, as far as the system lets the caller. What the system
/// refuses is told to `onNotCarriedOver`, if there is one, and nobody but the new owner gets a right that
/// they do not have to `from`. `path` names `from` in these notices.
void copyAccess(const Operation& operation, int from, int to, const std::filesystem::path& path,
                const std::function<void(const std::string&)>& onNotCarriedOver);

} // namespace norel::Desktop::Storage

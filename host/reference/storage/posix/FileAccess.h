#pragma once

#include "Operation.h"

#include <filesystem>
#include <functional>
#include <string>

namespace norel::Desktop::Storage {

/// Copies the owner, group, mode, access control list and extended attributes of the open file `from` to the
/// new file `to`, which only its owner can access so far. What the system does not allow is reported to
/// `onNotCarriedOver`, if there is one, with `path` as the name of `from`; no user but the new owner then
/// gets permissions that they do not have on `from`.
void copyAccess(const Operation& operation, int from, int to, const std::filesystem::path& path,
                const std::function<void(const std::string&)>& onNotCarriedOver);

} // namespace norel::Desktop::Storage

#pragma once

#include <system_error>

namespace norel::Desktop::Text {

/// The code of Windows (of GetLastError) as the error of POSIX that means the same, so that it reads the same
/// on all systems; of the system category where there is none.
std::error_code makeErrorCode(unsigned long code);

} // namespace norel::Desktop::Text

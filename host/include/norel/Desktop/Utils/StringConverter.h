#pragma once

#include "norel/Desktop/Utils/Export.h"

#include <string>

namespace norel::Desktop::Utils {

struct StringConverter {
    /// `text` with the letters a to z in upper case; every other byte, and so every character outside
    /// ASCII, stays as it is, whatever the locale. Any thread may call it.
    NOREL_UTILS_EXPORT static std::string toUpperCase(const std::string& text);
};

} // namespace norel::Desktop::Utils

#pragma once

#include "norel/Desktop/Utils/Export.h"

#include <string>

namespace norel::Desktop::Utils {

/// Changes the case of texts.
struct StringConverter {
    /// `text` with the letters a to z in upper case. All other bytes, and so all characters outside ASCII,
    /// are unchanged, whatever the locale. Thread-safe.
    NOREL_UTILS_EXPORT static std::string toUpperCase(const std::string& text);
};

} // namespace norel::Desktop::Utils

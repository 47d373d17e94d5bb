#pragma once

#include "norel/Desktop/Utils/Export.h"

#include <string>
#include <vector>

namespace norel::Desktop::Utils {

/// Takes texts apart.
struct StringFunctions {
    /// The pieces of `text` between occurrences of `delimiter`, in order. Adjacent, leading and trailing
    /// delimiters give empty pieces, so joining the pieces with the delimiter gives the text again. An empty
    /// delimiter gives the whole text as one piece. Thread-safe.
    NOREL_UTILS_EXPORT static std::vector<std::string> split(const std::string& text,
                                                             const std::string& delimiter);
};

} // namespace norel::Desktop::Utils

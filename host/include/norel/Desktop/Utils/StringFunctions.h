#pragma once

#include "norel/Desktop/Utils/Export.h"

#include <string>
#include <vector>

namespace norel::Desktop::Utils {

struct StringFunctions {
    /// The pieces of `text` between occurrences of `delimiter`, in order; adjacent, leading and trailing
    /// delimiters give empty pieces, so the pieces joined by the delimiter are the text again. An empty
    /// delimiter gives the whole text as one piece. Any thread may call it.
    NOREL_UTILS_EXPORT static std::vector<std::string> split(const std::string& text,
                                                             const std::string& delimiter);
};

} // namespace norel::Desktop::Utils

#pragma once

#include <cstdint>

namespace norel::Desktop::Utils {

/// A place in the source code, built where an error is raised.
struct SourceCodeLocation {
    const char* fileName; ///< the source file; a string literal, as it is not copied
    std::uint32_t line;   ///< the line number, from 1
};

} // namespace norel::Desktop::Utils

#pragma once

#include <cstdint>

namespace norel::Desktop::Utils {

/// Where in the source code an error was found; a small value made at the call site.
struct SourceCodeLocation {
    const char* fileName; ///< name of the source file, a literal
    std::uint32_t line;   ///< line number, counted from 1
};

} // namespace norel::Desktop::Utils

#pragma once

#include <cstdint>

namespace norel::Desktop::Utils {

struct SourceCodeLocation {
    const char* file;
    std::uint32_t line;
};

} // namespace norel::Desktop::Utils

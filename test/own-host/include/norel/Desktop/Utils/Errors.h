#pragma once

#include "norel/Desktop/Utils/SourceCodeLocation.h"

#include <stdexcept>

namespace norel::Desktop::Utils {

struct UnreachableCodeError : std::logic_error {
    using std::logic_error::logic_error;
};

[[noreturn]] void throwAssertionFailure(const char* message, const char* condition,
                                        const SourceCodeLocation& location);
[[noreturn]] void throwUnreachableCodeError(const char* message, const SourceCodeLocation& location);

} // namespace norel::Desktop::Utils

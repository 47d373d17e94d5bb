#pragma once

#include "norel/Desktop/Utils/SourceCodeLocation.h"

#include <stdexcept>
#include <string>

namespace norel::Desktop::Utils {

struct UnreachableCodeError : std::logic_error {
    using std::logic_error::logic_error;
};

[[noreturn]] inline void throwUnreachableCodeError(const std::string& message,
                                                   const SourceCodeLocation& location) {
    throw UnreachableCodeError(message + " [" + location.file + ":" + std::to_string(location.line) + "]");
}

[[noreturn]] inline void throwAssertionFailure(const std::string& message, const std::string& condition,
                                               const SourceCodeLocation& location) {
    throwUnreachableCodeError(message + ": " + condition, location);
}

} // namespace norel::Desktop::Utils

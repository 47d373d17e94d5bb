#pragma once

#include "norel/Desktop/Utils/Export.h"
#include "norel/Desktop/Utils/SourceCodeLocation.h"

#include <stdexcept>

/// Small helpers for texts and errors.
namespace norel::Desktop::Utils {

/// An internal invariant is violated.
struct NOREL_UTILS_EXPORT AssertionFailure : std::logic_error {
    using std::logic_error::logic_error;
};

/// An operation was called that the object does not support.
struct NOREL_UTILS_EXPORT UnreachableCodeError : std::logic_error {
    using std::logic_error::logic_error;
};

/// Throws AssertionFailure with the text "MESSAGE: CONDITION [FILE:LINE]". Thread-safe.
[[noreturn]] NOREL_UTILS_EXPORT void throwAssertionFailure(const char* message, const char* condition,
                                                           const SourceCodeLocation& location);

/// Throws UnreachableCodeError with the text "MESSAGE [FILE:LINE]". Thread-safe.
[[noreturn]] NOREL_UTILS_EXPORT void throwUnreachableCodeError(const char* message,
                                                               const SourceCodeLocation& location);

} // namespace norel::Desktop::Utils

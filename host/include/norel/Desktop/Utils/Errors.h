#pragma once

#include "norel/Desktop/Utils/Export.h"
#include "norel/Desktop/Utils/SourceCodeLocation.h"

#include <stdexcept>

namespace norel::Desktop::Utils {

/// An internal invariant does not hold.
class NOREL_UTILS_EXPORT AssertionFailure : public std::logic_error {
public:
    using std::logic_error::logic_error;
    AssertionFailure(const AssertionFailure&) = default;
    AssertionFailure& operator=(const AssertionFailure&) = default;
    ~AssertionFailure() override;
};

/// An operation was called that the object refuses.
class NOREL_UTILS_EXPORT UnreachableCodeError : public std::logic_error {
public:
    using std::logic_error::logic_error;
    UnreachableCodeError(const UnreachableCodeError&) = default;
    UnreachableCodeError& operator=(const UnreachableCodeError&) = default;
    ~UnreachableCodeError() override;
};

/// Throws AssertionFailure with the text "MESSAGE: CONDITION [FILE:LINE]".
/// Any thread may call it.
[[noreturn]] NOREL_UTILS_EXPORT void throwAssertionFailure(const char* message, const char* condition,
                                                           const SourceCodeLocation& location);

/// Throws UnreachableCodeError with the text "MESSAGE [FILE:LINE]".
/// Any thread may call it.
[[noreturn]] NOREL_UTILS_EXPORT void throwUnreachableCodeError(const char* message,
                                                               const SourceCodeLocation& location);

} // namespace norel::Desktop::Utils

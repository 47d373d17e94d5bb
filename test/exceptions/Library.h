#pragma once

#include "norel/Desktop/Test/LibraryExport.h"

#include <functional>
#include <string>

/// A library other than the one that defines the exceptions.
namespace norel::Desktop::Test {

/// Throws the exception of that kind: 0 for ParsingError, 1 for InvalidProfile, 2 for InvalidContent.
NOREL_EXCEPTIONS_TEST_EXPORT void throwAcrossLibraries(int kind);

/// The name in the type information, as this library has it, of the exception that `operation` throws;
/// nullptr for other exceptions.
NOREL_EXCEPTIONS_TEST_EXPORT const char* catchAcrossLibraries(const std::function<void()>& operation);

} // namespace norel::Desktop::Test

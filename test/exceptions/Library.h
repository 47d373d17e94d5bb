#pragma once

#include "norel/Desktop/Test/LibraryExport.h"

#include <array>
#include <typeinfo>

/// A library other than the one that defines the exceptions.
namespace norel::Desktop::Test {

/// Its type information of ParsingError, InvalidProfile and InvalidContent.
NOREL_EXCEPTIONS_TEST_EXPORT std::array<const std::type_info*, 3> getTypesInLibrary();

/// Throws that exception.
NOREL_EXCEPTIONS_TEST_EXPORT void throwInvalidContent();

} // namespace norel::Desktop::Test

#pragma once

#include "norel/Desktop/Utils/Export.h"

#include <string>

/// Conversion of values to text for messages, independent of the locale. The functions are thread-safe.
namespace norel::Desktop::Utils::ConvertToGenericString {

/// The shortest decimal text that reads back to the same number: "0.5", "1e-05", "360".
NOREL_UTILS_EXPORT std::string convertToGenericString(double number);
NOREL_UTILS_EXPORT std::string convertToGenericString(unsigned int number);
NOREL_UTILS_EXPORT std::string convertToGenericString(int number);

} // namespace norel::Desktop::Utils::ConvertToGenericString

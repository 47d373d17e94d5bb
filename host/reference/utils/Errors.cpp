#include "norel/Desktop/Utils/Errors.h"

#include <string>

namespace norel::Desktop::Utils {
namespace {

std::string withLocation(const std::string& message, const SourceCodeLocation& location) {
    return message + " [" + location.fileName + ":" + std::to_string(location.line) + "]";
}

} // namespace

void throwAssertionFailure(const char* message, const char* condition, const SourceCodeLocation& location) {
    throw AssertionFailure(withLocation(std::string(message) + ": " + condition, location));
}

void throwUnreachableCodeError(const char* message, const SourceCodeLocation& location) {
    throw UnreachableCodeError(withLocation(message, location));
}

} // namespace norel::Desktop::Utils

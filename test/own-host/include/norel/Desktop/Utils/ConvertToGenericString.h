#pragma once

#include <string>

namespace norel::Desktop::Utils::ConvertToGenericString {

std::string convertToGenericString(double number);
std::string convertToGenericString(unsigned int number);
std::string convertToGenericString(int number);

} // namespace norel::Desktop::Utils::ConvertToGenericString

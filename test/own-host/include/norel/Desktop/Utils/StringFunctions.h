#pragma once

#include <string>
#include <vector>

namespace norel::Desktop::Utils {

struct StringFunctions {
    static std::vector<std::string> split(const std::string& text, const std::string& delimiter);
};

} // namespace norel::Desktop::Utils

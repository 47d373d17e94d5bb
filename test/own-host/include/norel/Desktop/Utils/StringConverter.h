#pragma once

#include <string>

namespace norel::Desktop::Utils {

struct StringConverter {
    static std::string toUpperCase(const std::string& text);
};

} // namespace norel::Desktop::Utils

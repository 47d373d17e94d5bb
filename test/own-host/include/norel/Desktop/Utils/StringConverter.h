#pragma once

#include <string>

namespace norel::Desktop::Utils {

struct StringConverter {
    static std::string toUpperCase(std::string text) {
        for (char& c : text)
            c = c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
        return text;
    }
};

} // namespace norel::Desktop::Utils

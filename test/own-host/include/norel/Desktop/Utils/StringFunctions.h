#pragma once

#include <string>
#include <vector>

namespace norel::Desktop::Utils {

struct StringFunctions {
    static std::vector<std::string> split(const std::string& text, const std::string& delimiter) {
        std::vector<std::string> pieces;
        std::size_t begin = 0, end = 0;
        for (; (end = text.find(delimiter, begin)) != std::string::npos; begin = end + delimiter.size())
            pieces.push_back(text.substr(begin, end - begin));
        pieces.push_back(text.substr(begin));
        return pieces;
    }
};

} // namespace norel::Desktop::Utils

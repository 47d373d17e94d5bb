#include "norel/Desktop/Utils/ConvertToGenericString.h"
#include "norel/Desktop/Utils/StringConverter.h"
#include "norel/Desktop/Utils/StringFunctions.h"

#include <array>
#include <charconv>

namespace norel::Desktop::Utils {
namespace {

template <typename Number>
std::string toText(Number number) {
    std::array<char, 32> text; // the longest double takes 24
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

} // namespace

std::string ConvertToGenericString::convertToGenericString(double number) { return toText(number); }

std::string ConvertToGenericString::convertToGenericString(unsigned int number) { return toText(number); }

std::string ConvertToGenericString::convertToGenericString(int number) { return toText(number); }

std::vector<std::string> StringFunctions::split(const std::string& text, const std::string& delimiter) {
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    std::size_t end = delimiter.empty() ? std::string::npos : text.find(delimiter);
    for (; end != std::string::npos; end = text.find(delimiter, begin)) {
        pieces.push_back(text.substr(begin, end - begin));
        begin = end + delimiter.size();
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

std::string StringConverter::toUpperCase(const std::string& text) {
    std::string result = text;
    for (char& letter : result)
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    return result;
}

} // namespace norel::Desktop::Utils

#pragma once

#include "norel/Desktop/DataFormat/Json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <string_view>

namespace norel::Desktop::DataFormat {

inline Json::JsonError notFinite() { return Json::JsonError("JSON cannot hold a number that is not finite"); }

/// `place` follows the text.
inline Json::JsonError tooDeep(const std::string& place = "") {
    return Json::JsonError("arrays and objects nest deeper than " + std::to_string(Json::MAXIMUM_DEPTH) +
                           " levels" + place);
}

/// " at line 1, column 1" for the first byte, as the JSON library counts.
inline std::string placeInText(const std::string& text, std::size_t offset) {
    const std::string_view before = std::string_view(text).substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const auto lineStart = before.rfind('\n') + 1; // 0 when there is no line feed
    return " at line " + std::to_string(line) + ", column " + std::to_string(before.size() - lineStart + 1);
}

/// The JSON library's error text, truncated because it may quote a hostile document.
inline std::string boundedErrorText(std::string text) {
    constexpr std::size_t maximumLength = 500;
    if (text.size() > maximumLength) {
        std::size_t end = maximumLength;
        while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) // inside a UTF-8 character
            --end;
        text.resize(end);
        text += "...";
    }
    return text;
}

/// Runs `operation`, translating the exceptions of the JSON library into ours, which keep the text.
template <typename Operation>
decltype(auto) translateErrors(const Operation& operation) {
    try {
        return operation();
    } catch (const nlohmann::ordered_json::type_error& error) {
        throw Json::IncompatibleTypeError(boundedErrorText(error.what()));
    } catch (const nlohmann::ordered_json::exception& error) {
        throw Json::JsonError(boundedErrorText(error.what()));
    }
}

} // namespace norel::Desktop::DataFormat

#pragma once

#include "norel/Desktop/DataFormat/Json.h"

#include <nlohmann/json.hpp>

#include <string>

namespace norel::Desktop::DataFormat {

inline Json::JsonError tooDeep() {
    return Json::JsonError("arrays and objects nest deeper than " + std::to_string(Json::MAXIMUM_DEPTH) +
                           " levels");
}

inline Json::JsonError tooManyMembers() {
    return Json::JsonError("an object has more than " + std::to_string(Json::MAXIMUM_MEMBERS) + " members");
}

/// The JSON library's error text, cut when a hostile document made it long.
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

/// Runs `operation`; an exception of the JSON library leaves as one of ours with its text.
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

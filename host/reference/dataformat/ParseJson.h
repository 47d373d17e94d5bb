#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace norel::Desktop::DataFormat {

/// Parses a whole JSON text under the limits of Json. Throws Json::JsonError.
nlohmann::ordered_json parseJson(const std::string& text);

} // namespace norel::Desktop::DataFormat

#pragma once

#include "JsonTree.h"

#include <string>

namespace norel::Desktop::DataFormat {

/// Parses a whole JSON text under the limits of Json::fromString. Throws Json::JsonError.
JsonTree parseJson(const std::string& text);

} // namespace norel::Desktop::DataFormat

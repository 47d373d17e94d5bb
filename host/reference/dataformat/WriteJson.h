#pragma once

#include "JsonTree.h"

#include <string>

namespace norel::Desktop::DataFormat {

/// The text that Json::toString gives. Throws Json::JsonError.
std::string writeJson(const Node& value, int indent);
/// Also destroys the children of the value.
std::string writeJson(Node&& value, int indent);

} // namespace norel::Desktop::DataFormat

#pragma once

#include "documents/Validation.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <string>

namespace norel::Desktop::PayloadProfiles {

/// The name of the standard input in reports.
inline constexpr const char* STANDARD_INPUT = "<stdin>";

/// A line for each finding, "FILE:LINE:COLUMN: error: PATH: message", which editors recognise.
std::string makeTextReport(const std::string& file, const Validation& validation);

DataFormat::Json makeJsonReport(const std::string& file, const Validation& validation);

} // namespace norel::Desktop::PayloadProfiles

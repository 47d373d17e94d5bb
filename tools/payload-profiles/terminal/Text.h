#pragma once

#include "text/PrintableText.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace norel::Desktop::PayloadProfiles {

using Text::getDisplayWidth;
using Text::printableJson;
using Text::shortened;

/// Untrusted text on one line, with everything escaped that could control a terminal.
std::string printable(std::string_view text);

/// `text`, printable, between quotation marks.
std::string inQuotes(std::string_view text);

/// "1 profile", "3 profiles".
std::string counted(std::size_t number, const std::string& noun);

} // namespace norel::Desktop::PayloadProfiles

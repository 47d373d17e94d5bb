#pragma once

#include <string>
#include <string_view>

namespace norel::Desktop::Networking {

/// A text of foreign origin made fit for a message: control characters and bytes that are not UTF-8 become
/// "\n", "\t" or "\x1b", and what follows the first `maximumBytes` bytes, to a whole character, becomes
/// "...".
std::string printableText(std::string_view text, std::size_t maximumBytes);

} // namespace norel::Desktop::Networking

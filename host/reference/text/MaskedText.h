#pragma once

#include <string>
#include <string_view>

namespace norel::Desktop::Text {

/// `text` with "***" in place of `secret`, also where characters of it are spelled as in an address ("%2F"),
/// in JSON ("\/", "\u002f") or in HTML ("&#47;", "&amp;"). A beginning of `secret` of 8 bytes or more is
/// masked as well: the server may have truncated it. An empty secret leaves the text unchanged. Thread-safe.
std::string masked(std::string_view text, std::string_view secret);

} // namespace norel::Desktop::Text

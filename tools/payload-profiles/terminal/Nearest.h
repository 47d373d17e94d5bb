#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// The candidate that was probably meant by a misspelt word: the one that the fewest typing errors (a
/// character missing, added, replaced, or swapped with the next one) turn into the word, the first of
/// several. Empty when even that one takes more errors than a third of the length of the word.
std::optional<std::string> findNearest(std::string_view word, const std::vector<std::string>& candidates);

} // namespace norel::Desktop::PayloadProfiles

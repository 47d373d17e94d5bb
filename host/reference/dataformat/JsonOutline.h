#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace norel::Desktop::DataFormat {

/// The result of a first pass over a JSON text: the sizes of its arrays and objects, so that the tree is
/// built without reallocation, and whether it exceeds the limits of Json::fromString. For malformed text the
/// result is valid up to the error, and the sizes still respect the limit on memory.
struct JsonOutline {
    static constexpr std::size_t MEMORY_PER_BYTE = 24;

    explicit JsonOutline(const std::string& text);

    /// The number of elements or members of each array and object, in the order in which they begin.
    std::vector<std::uint32_t> itemCounts;
    /// Where the first array or object begins that nests deeper than Json::MAXIMUM_DEPTH; the pass ends
    /// there.
    std::size_t tooDeepAt = std::string::npos;
    /// Whether the tree would take more than MEMORY_PER_BYTE times the memory of the text; the pass ends as
    /// soon as that is certain.
    bool takesTooMuchMemory = false;
};

} // namespace norel::Desktop::DataFormat

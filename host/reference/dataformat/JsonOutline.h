#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace norel::Desktop::DataFormat {

/// What a first pass over a JSON text finds out: the sizes of its arrays and objects, so that the tree is
/// built without growing them, and whether it keeps the limits of Json::fromString. The pass takes any text;
/// of malformed text the result says nothing certain, but no more memory than the text is given.
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

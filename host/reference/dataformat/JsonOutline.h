#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace norel::Desktop::DataFormat {

/// What a first pass over a JSON text finds out, so that the tree can be built in containers of the right
/// size. Of malformed text it says nothing certain.
struct JsonOutline {
    explicit JsonOutline(const std::string& text);

    /// The number of elements or members of each array and object, in the order in which they begin.
    std::vector<std::uint32_t> itemCounts;
    /// Where the first array or object begins that nests deeper than Json::MAXIMUM_DEPTH; the pass ends
    /// there.
    std::size_t tooDeepAt = std::string::npos;
};

} // namespace norel::Desktop::DataFormat

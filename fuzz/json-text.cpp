#include "Fuzzing.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

using norel::Desktop::DataFormat::Json;
using norel::Fuzzing::require;
using Tree = nlohmann::ordered_json;

namespace {

std::size_t depthOf(const Tree& tree) {
    std::size_t depth = 0;
    for (const Tree& element : tree.is_structured() ? tree : Tree())
        depth = std::max(depth, depthOf(element));
    return depth + (tree.is_structured() ? 1 : 0);
}

/// The text as parsed by the JSON library, which takes a NUL for the end of the text; empty when that fails.
std::optional<Tree> parse(const std::string& text) {
    if (text.find('\0') != std::string::npos)
        return std::nullopt;
    try {
        return Tree::parse(text);
    } catch (const Tree::exception&) {
        return std::nullopt;
    }
}

} // namespace

/// The host reads the texts that the JSON library reads, up to its maximum depth, and writes them the same
/// way.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = norel::Fuzzing::toText(data, size);
    const std::optional<Tree> expected = parse(text);
    Json json;
    try {
        json = Json::fromString(text);
    } catch (const Json::JsonError&) {
        require(!expected || depthOf(*expected) > Json::MAXIMUM_DEPTH, "a JSON text is accepted");
        return 0;
    }
    require(expected.has_value(), "an accepted text is JSON");
    const std::string written = json.toString(-1);
    require(written == expected->dump(), "a value is written as the JSON library writes it");
    require(json.toString(4) == expected->dump(4),
            "an indented value is written as the JSON library writes it");
    require(Json::fromString(written).toString(-1) == written, "a written value reads back");
    return 0;
}

#include "ParsingErrors.h"

#include <utility>

namespace norel::Desktop::Domain::Payloads {

using JsonPath = JsonProfileListSerializer::JsonPath;

JsonPath::JsonPath(const Json& root) : json(root) {}

JsonPath::JsonPath(const JsonPath& other) : json(other.json), steps(other.getPath()) {}

JsonPath::JsonPath(const JsonPath& parent, Json value, const std::string& key)
    : json(std::move(value)), parentPath(&parent), lastKey(&key) {}

JsonPath::JsonPath(const JsonPath& parent, Json value, unsigned int index)
    : json(std::move(value)), parentPath(&parent), lastIndex(index) {}

JsonPath::~JsonPath() = default;

JsonPath JsonPath::makePathToKey(const std::string& key) const {
    const JsonPath referring(*this, getMember(key), key);
    return JsonPath(referring);
}

JsonPath JsonPath::makePathToIndex(const Json& element, unsigned int index) const {
    const JsonPath referring(*this, element, index);
    return JsonPath(referring);
}

bool JsonPath::contains(const std::string& key) const { return json.contains(key); }

bool JsonPath::isOptionalSet(const std::string& key) const {
    return contains(key) && !json.getValue(key).isNull();
}

const JsonProfileListSerializer::Json JsonPath::getMember(const std::string& key) const {
    return withPath(*this, [&] { return json.getValue(key); });
}

const std::vector<std::string>& JsonPath::getPath() const {
    if (parentPath && steps.empty()) {
        std::vector<std::string> path = parentPath->getPath();
        path.push_back(lastKey ? *lastKey : std::string("[").append(std::to_string(lastIndex)).append("]"));
        steps = std::move(path);
    }
    return steps;
}

std::string JsonPath::getPathString() const {
    std::string text;
    for (const std::string& step : getPath())
        text.append(step).append(".");
    return text.substr(0, text.size() - (text.empty() ? 0 : 1)); // without the final "."
}

} // namespace norel::Desktop::Domain::Payloads

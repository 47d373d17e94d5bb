#include "ParsingErrors.h"

#include <utility>

namespace norel::Desktop::Domain::Payloads {

using JsonPath = JsonProfileListSerializer::JsonPath;

JsonPath::JsonPath(const Json& root) : value(root) {}

JsonPath::JsonPath(const JsonPath& other) : value(other.value), path(other.getPath()) {}

JsonPath::JsonPath(const JsonPath& parent, Json value, const std::string& key)
    : value(std::move(value)), parent(&parent), key(&key) {}

JsonPath::JsonPath(const JsonPath& parent, Json value, unsigned int index)
    : value(std::move(value)), parent(&parent), index(index) {}

JsonPath::~JsonPath() = default;

JsonPath JsonPath::makePathToKey(const std::string& key) const {
    const JsonPath borrowing(*this, getMember(key), key);
    return JsonPath(borrowing);
}

JsonPath JsonPath::makePathToIndex(const Json& element, unsigned int index) const {
    const JsonPath borrowing(*this, element, index);
    return JsonPath(borrowing);
}

bool JsonPath::contains(const std::string& key) const { return value.contains(key); }

bool JsonPath::isOptionalSet(const std::string& key) const {
    return contains(key) && !value.getValue(key).isNull();
}

const JsonProfileListSerializer::Json JsonPath::getMember(const std::string& key) const {
    return withPath(*this, [&] { return value.getValue(key); });
}

const std::vector<std::string>& JsonPath::getPath() const {
    if (parent && path.empty()) {
        path = parent->getPath();
        path.push_back(key ? *key : std::string("[").append(std::to_string(index)).append("]"));
    }
    return path;
}

std::string JsonPath::getPathString() const {
    std::string text;
    for (const std::string& step : getPath())
        text.append(step).append(".");
    return text.substr(0, text.size() - (text.empty() ? 0 : 1)); // no "." after the last
}

} // namespace norel::Desktop::Domain::Payloads

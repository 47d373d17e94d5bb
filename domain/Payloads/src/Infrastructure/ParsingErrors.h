#pragma once

#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include <utility>

namespace norel::Desktop::Domain::Payloads {

/// Makes the path of a member or element, which refers to `parent` and to the key, without looking it up in
/// the parent's value.
struct ChildPath {
    using JsonPath = JsonProfileListSerializer::JsonPath;

    template <typename KeyOrIndex>
    static JsonPath make(const JsonPath& parent, const KeyOrIndex& step, DataFormat::Json value = {}) {
        return JsonPath(parent, std::move(value), step);
    }
};

/// Runs `operation`, translating the errors of JSON values into ParsingError with the path.
template <typename Operation>
decltype(auto) withPath(const JsonProfileListSerializer::JsonPath& path, const Operation& operation) {
    try {
        return operation();
    } catch (const DataFormat::Json::JsonError& error) {
        throw ProfileListSerializer::ParsingError(error.what() + (" at " + path.getPathString()));
    }
}

} // namespace norel::Desktop::Domain::Payloads

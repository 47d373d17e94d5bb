#pragma once

#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

namespace norel::Desktop::Domain::Payloads {

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

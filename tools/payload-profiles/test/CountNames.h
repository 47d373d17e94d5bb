#pragma once

#include "norel/Desktop/DataFormat/Json.h"

#include <map>
#include <string>

namespace norel::Desktop::PayloadProfiles::Test {

using Names = std::map<std::string, int>; ///< and how often each occurs

/// The names of the profiles in a document.
inline Names countNames(const std::string& document) {
    Names names;
    for (const DataFormat::Json& profile : DataFormat::Json::fromString(document))
        ++names[profile.get("name")];
    return names;
}

} // namespace norel::Desktop::PayloadProfiles::Test

#pragma once

#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"

#include <span>
#include <string_view>

namespace norel::Desktop::Domain::Payloads {

/// A version of the profile-list document to which the previous one can be upgraded.
struct DocumentVersion {
    unsigned int number;
    std::string_view factoryDocument;
    std::vector<DocumentVersions::Section> sections; ///< that it added; older documents lack them
};

/// In ascending order; the last one is the current version.
std::span<const DocumentVersion> documentVersions();

/// Null for a number that is not in the table.
const DocumentVersion* findDocumentVersion(unsigned int number);

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"

#include <string>

/// The factory profiles of every supported product, as one document per version, from the second on.
/// Thread-safe.
namespace norel::Desktop::Domain::Payloads::DefaultProducts {

/// The document of the current version (DocumentVersions::getCurrent).
NOREL_PAYLOADS_EXPORT std::string getSourceDocument();

NOREL_PAYLOADS_EXPORT std::string getSourceDocumentVersion2();
NOREL_PAYLOADS_EXPORT std::string getSourceDocumentVersion3();
NOREL_PAYLOADS_EXPORT std::string getSourceDocumentVersion4();

/// The document of that version; an empty text for the first version and for an unknown one.
NOREL_PAYLOADS_EXPORT std::string getSourceDocumentFromVersionInfo(unsigned int version);

} // namespace norel::Desktop::Domain::Payloads::DefaultProducts

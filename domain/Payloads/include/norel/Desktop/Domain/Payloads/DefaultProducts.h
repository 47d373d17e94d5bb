#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"

#include <string>

/// The factory profiles of every supported product, as the document of each version in which they were
/// shipped. Any thread may call these functions.
namespace norel::Desktop::Domain::Payloads::DefaultProducts {

/// The current document, version 5.
NOREL_PAYLOADS_EXPORT std::string getSourceDocument();

NOREL_PAYLOADS_EXPORT std::string getSourceDocumentVersion2();
NOREL_PAYLOADS_EXPORT std::string getSourceDocumentVersion3();
NOREL_PAYLOADS_EXPORT std::string getSourceDocumentVersion4();

/// The document of that version, 2 to 5; an empty text for any other.
NOREL_PAYLOADS_EXPORT std::string getSourceDocumentFromVersionInfo(unsigned int version);

} // namespace norel::Desktop::Domain::Payloads::DefaultProducts

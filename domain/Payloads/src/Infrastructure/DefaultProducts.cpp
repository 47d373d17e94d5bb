#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include "DocumentVersionTable.h"

namespace norel::Desktop::Domain::Payloads::DefaultProducts {

std::string getSourceDocument() { return std::string(documentVersions().back().factoryDocument); }

std::string getSourceDocumentVersion2() { return getSourceDocumentFromVersionInfo(2); }

std::string getSourceDocumentVersion3() { return getSourceDocumentFromVersionInfo(3); }

std::string getSourceDocumentVersion4() { return getSourceDocumentFromVersionInfo(4); }

std::string getSourceDocumentFromVersionInfo(unsigned int version) {
    const DocumentVersion* const found = findDocumentVersion(version);
    return found ? std::string(found->factoryDocument) : std::string();
}

} // namespace norel::Desktop::Domain::Payloads::DefaultProducts

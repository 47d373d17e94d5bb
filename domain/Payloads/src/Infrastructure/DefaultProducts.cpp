#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include "EmbeddedDocuments.h"

namespace norel::Desktop::Domain::Payloads::DefaultProducts {

std::string getSourceDocument() { return std::string(EmbeddedDocuments::version5()); }

std::string getSourceDocumentVersion2() { return std::string(EmbeddedDocuments::version2()); }

std::string getSourceDocumentVersion3() { return std::string(EmbeddedDocuments::version3()); }

std::string getSourceDocumentVersion4() { return std::string(EmbeddedDocuments::version4()); }

std::string getSourceDocumentFromVersionInfo(unsigned int version) {
    switch (version) {
    case 2:
        return getSourceDocumentVersion2();
    case 3:
        return getSourceDocumentVersion3();
    case 4:
        return getSourceDocumentVersion4();
    case 5:
        return getSourceDocument();
    default:
        return {};
    }
}

} // namespace norel::Desktop::Domain::Payloads::DefaultProducts

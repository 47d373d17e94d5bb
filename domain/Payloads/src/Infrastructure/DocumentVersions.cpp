#include "DocumentKeys.h"
#include "DocumentVersionTable.h"
#include "EmbeddedDocuments.h"

#include <algorithm>
#include <array>

namespace norel::Desktop::Domain::Payloads {

std::span<const DocumentVersion> documentVersions() {
    using namespace EmbeddedDocuments;
    using namespace Keys;
    static const std::array table{
        DocumentVersion{
            2,
            version2(),
            {{LIDAR, STRIP_ADJUSTMENT},
             {LIDAR, PRECISION_ENHANCEMENT, AVERAGE_POINT_CLOUD_THICKNESS},
             {LIDAR, PRECISION_ENHANCEMENT, MORPHOLOGICAL_REJECTION, AVERAGE_POINT_CLOUD_DENSITY}}},
        DocumentVersion{3, version3(), {{LIDAR, GROUND_CLASSIFICATION}}},
        DocumentVersion{4, version4(), {{LIDAR, POINT_CLOUD_DIRECT_COLORIZATION}}},
        DocumentVersion{5, version5(), {{LIDAR, GROUND_CLASSIFICATION, DSM}}}};
    return table;
}

const DocumentVersion* findDocumentVersion(unsigned int number) {
    const auto versions = documentVersions();
    const auto found = std::ranges::find(versions, number, &DocumentVersion::number);
    return found == versions.end() ? nullptr : &*found;
}

unsigned int DocumentVersions::getFirst() { return documentVersions().front().number - 1; }

unsigned int DocumentVersions::getCurrent() { return documentVersions().back().number; }

std::vector<DocumentVersions::Section> DocumentVersions::getSections(unsigned int version) {
    const DocumentVersion* const found = findDocumentVersion(version);
    return found ? found->sections : std::vector<Section>();
}

} // namespace norel::Desktop::Domain::Payloads

#include "norel/Desktop/Domain/Payloads/GroundClassification.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads::GroundClassification {

Segmentation Segmentation::Builder::build() const { return buildFirstToLast<Segmentation>(*this); }

Densification Densification::Builder::build() const { return buildFirstToLast<Densification>(*this); }

DigitalSurfaceModel DigitalSurfaceModel::Builder::build() const {
    return buildFirstToLast<DigitalSurfaceModel>(*this);
}

InteriorProcessing InteriorProcessing::Builder::build() const {
    return buildFirstToLast<InteriorProcessing>(*this);
}

HullProcessing HullProcessing::Builder::build() const { return buildFirstToLast<HullProcessing>(*this); }

GroundClassification GroundClassification::Builder::build() const {
    return buildFirstToLast<GroundClassification>(*this);
}

} // namespace norel::Desktop::Domain::Payloads::GroundClassification

#include "norel/Desktop/Domain/Payloads/GroundClassification.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads::GroundClassification {

Segmentation Segmentation::Builder::build() const {
    return buildFirstToLast<Segmentation>(maximumNormalDeviation, maximumOrthogonalDistance,
                                          minimumPointsPerRegion);
}

Densification Densification::Builder::build() const {
    return buildFirstToLast<Densification>(maximumAngularDeviation, maximumOrthogonalDistance);
}

DigitalSurfaceModel DigitalSurfaceModel::Builder::build() const {
    return buildFirstToLast<DigitalSurfaceModel>(gridSize, tilesSize, tilesOverlap);
}

InteriorProcessing InteriorProcessing::Builder::build() const {
    return buildFirstToLast<InteriorProcessing>(densification, segmentation);
}

HullProcessing HullProcessing::Builder::build() const {
    return buildFirstToLast<HullProcessing>(convexBandWidth, segmentation);
}

GroundClassification GroundClassification::Builder::build() const {
    return buildFirstToLast<GroundClassification>(maximumBuildingSize, maximumTerrainSlope, numberOfNeighbors,
                                                  interiorProcessing, hullProcessing, terrainTypology,
                                                  digitalSurfaceModel);
}

} // namespace norel::Desktop::Domain::Payloads::GroundClassification

#include "norel/Desktop/Domain/Payloads/PrecisionEnhancement.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads {

MorphologicalRejection MorphologicalRejection::Builder::build() const {
    return buildLastToFirst<MorphologicalRejection>(averagePointCloudDensity, outlyingScoreThreshold,
                                                    copWeighting);
}

PrecisionEnhancement PrecisionEnhancement::Builder::build() const {
    return buildLastToFirst<PrecisionEnhancement>(averagePointCloudThickness, suppressionThreshold, sharpener,
                                                  minimumNeighborsToBeProcessed, maximumNeighborsToConsider,
                                                  minimumNeighborsToBeIsolated, morphologicalRejection);
}

} // namespace norel::Desktop::Domain::Payloads

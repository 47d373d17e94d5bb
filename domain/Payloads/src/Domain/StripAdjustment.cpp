#include "norel/Desktop/Domain/Payloads/StripAdjustment.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads::StripAdjustment {

Preprocessing Preprocessing::Builder::build() const {
    return buildLastToFirst<Preprocessing>(neighborsSearchRadius, minimumNeighborsToBeProcessed,
                                           maximumRoughness, intersectionDistance, intersectionMinimumPoints,
                                           intersectionMaximumVerticalDistance, lineMinimumPoints,
                                           referenceLineMinimumPoints);
}

Sampling Sampling::Builder::build() const {
    return buildLastToFirst<Sampling>(readFractionDenominator, normalSampleSize, uniformSamplingRadius,
                                      normalSamplingSlopeInterval, randomSamplingFactor);
}

Rejection Rejection::Builder::build() const {
    return buildLastToFirst<Rejection>(maximumAngle, stdEstimationFactor, zDistanceScore);
}

Minimization Minimization::Builder::build() const {
    return buildLastToFirst<Minimization>(lsAngleEpsilon, lsDistanceEpsilon, lsProbability,
                                          maximumInnerLoopCount, maximumOuterLoopCount,
                                          counterChi2LoopMaximum);
}

StripAdjustment StripAdjustment::Builder::build() const {
    return buildLastToFirst<StripAdjustment>(temporalTimeFrame, sampling, rejection, preprocessing,
                                             minimization);
}

} // namespace norel::Desktop::Domain::Payloads::StripAdjustment

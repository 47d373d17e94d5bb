#include "norel/Desktop/Domain/Payloads/PointCloudDirectColorization.h"

#include "Building.h"

namespace norel::Desktop::Domain::Payloads::PointCloudDirectColorization {

Distortion Distortion::Builder::build() const {
    return buildFirstToLast<Distortion>(radial1, radial2, radial3, tangential1, tangential2);
}

Images Images::Builder::build() const {
    return buildFirstToLast<Images>(width, height, focalLength, principalPointX, principalPointY);
}

PointCloudDirectColorization PointCloudDirectColorization::Builder::build() const {
    return buildLastToFirst<PointCloudDirectColorization>(
        flightHeight, imageReadSamplingFactor, imageResizingFactor, pointCloudSamplingReadFactor,
        samplingResolution, octreeResolution, octreeMinimumPointsPerBlock, occlusionFactor,
        occlusionNumberOfNeighbors, verticalAngleThreshold, numberOfImagesUsedPerPoint, distortion, images,
        terrainTypology);
}

} // namespace norel::Desktop::Domain::Payloads::PointCloudDirectColorization

#pragma once

#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <array>
#include <tuple>
#include <type_traits>

/// The members of each value type, with their getters, in the order in which they must be built.
namespace norel::Desktop::Domain::Payloads::Test {

using Texts = std::array<const char*, 3>;

/// For a string with a rule, `valid` holds valid values and `errorPrefix` how the message for an invalid one
/// begins.
template <typename Member, typename Getter>
struct Row {
    Member member;
    Getter getter;
    Texts valid{};
    const char* errorPrefix = nullptr;
};
template <typename Member, typename Getter>
Row(Member, Getter, Texts = {}, const char* = nullptr) -> Row<Member, Getter>;

template <typename V, typename Value>
constexpr bool is = std::is_same_v<V, Value>;

/// The rows of a type of processing settings.
template <typename V>
constexpr auto processingRowsOf() {
    using B = typename V::Builder;
    if constexpr (is<V, StripAdjustment::Preprocessing>)
        return std::tuple(
            Row{&B::referenceLineMinimumPoints, &V::getReferenceLineMinimumPoints},
            Row{&B::lineMinimumPoints, &V::getLineMinimumPoints},
            Row{&B::intersectionMaximumVerticalDistance, &V::getIntersectionMaximumVerticalDistance},
            Row{&B::intersectionMinimumPoints, &V::getIntersectionMinimumPoints},
            Row{&B::intersectionDistance, &V::getIntersectionDistance},
            Row{&B::maximumRoughness, &V::getMaximumRoughness},
            Row{&B::minimumNeighborsToBeProcessed, &V::getMinimumNeighborsToBeProcessed},
            Row{&B::neighborsSearchRadius, &V::getNeighborsSearchRadius});
    else if constexpr (is<V, StripAdjustment::Sampling>)
        return std::tuple(Row{&B::randomSamplingFactor, &V::getRandomSamplingFactor},
                          Row{&B::normalSamplingSlopeInterval, &V::getNormalSamplingSlopeInterval},
                          Row{&B::uniformSamplingRadius, &V::getUniformSamplingRadius},
                          Row{&B::normalSampleSize, &V::getNormalSampleSize},
                          Row{&B::readFractionDenominator, &V::getReadFractionDenominator});
    else if constexpr (is<V, StripAdjustment::Rejection>)
        return std::tuple(Row{&B::zDistanceScore, &V::getZDistanceScore},
                          Row{&B::stdEstimationFactor, &V::getStdEstimationFactor},
                          Row{&B::maximumAngle, &V::getMaximumAngle});
    else if constexpr (is<V, StripAdjustment::Minimization>)
        return std::tuple(Row{&B::counterChi2LoopMaximum, &V::getCounterChi2LoopMaximum},
                          Row{&B::maximumOuterLoopCount, &V::getMaximumOuterLoopCount},
                          Row{&B::maximumInnerLoopCount, &V::getMaximumInnerLoopCount},
                          Row{&B::lsProbability, &V::getLsProbability},
                          Row{&B::lsDistanceEpsilon, &V::getLsDistanceEpsilon},
                          Row{&B::lsAngleEpsilon, &V::getLsAngleEpsilon});
    else if constexpr (is<V, StripAdjustment::StripAdjustment>)
        return std::tuple(Row{&B::minimization, &V::getMinimization},
                          Row{&B::preprocessing, &V::getPreprocessing}, Row{&B::rejection, &V::getRejection},
                          Row{&B::sampling, &V::getSampling},
                          Row{&B::temporalTimeFrame, &V::getTemporalTimeFrame});
    else if constexpr (is<V, GroundClassification::Segmentation>)
        return std::tuple(Row{&B::maximumNormalDeviation, &V::getMaximumNormalDeviation},
                          Row{&B::maximumOrthogonalDistance, &V::getMaximumOrthogonalDistance},
                          Row{&B::minimumPointsPerRegion, &V::getMinimumPointsPerRegion});
    else if constexpr (is<V, GroundClassification::Densification>)
        return std::tuple(Row{&B::maximumAngularDeviation, &V::getMaximumAngularDeviation},
                          Row{&B::maximumOrthogonalDistance, &V::getMaximumOrthogonalDistance});
    else if constexpr (is<V, GroundClassification::DigitalSurfaceModel>)
        return std::tuple(Row{&B::gridSize, &V::getGridSize}, Row{&B::tilesSize, &V::getTilesSize},
                          Row{&B::tilesOverlap, &V::getTilesOverlap});
    else if constexpr (is<V, GroundClassification::InteriorProcessing>)
        return std::tuple(Row{&B::densification, &V::getDensification},
                          Row{&B::segmentation, &V::getSegmentation});
    else if constexpr (is<V, GroundClassification::HullProcessing>)
        return std::tuple(Row{&B::convexBandWidth, &V::getConvexBandWidth},
                          Row{&B::segmentation, &V::getSegmentation});
    else if constexpr (is<V, GroundClassification::GroundClassification>)
        return std::tuple(Row{&B::maximumBuildingSize, &V::getMaximumBuildingSize},
                          Row{&B::maximumTerrainSlope, &V::getMaximumTerrainSlope},
                          Row{&B::numberOfNeighbors, &V::getNumberOfNeighbors},
                          Row{&B::interiorProcessing, &V::getInteriorProcessing},
                          Row{&B::hullProcessing, &V::getHullProcessing},
                          Row{&B::digitalSurfaceModel, &V::getDigitalSurfaceModel},
                          Row{&B::terrainTypology, &V::getTerrainTypology});
    else if constexpr (is<V, PointCloudDirectColorization::Distortion>)
        return std::tuple(Row{&B::radial1, &V::getRadial1}, Row{&B::radial2, &V::getRadial2},
                          Row{&B::radial3, &V::getRadial3}, Row{&B::tangential1, &V::getTangential1},
                          Row{&B::tangential2, &V::getTangential2});
    else if constexpr (is<V, PointCloudDirectColorization::Images>)
        return std::tuple(Row{&B::width, &V::getWidth}, Row{&B::height, &V::getHeight},
                          Row{&B::focalLength, &V::getFocalLength},
                          Row{&B::principalPointX, &V::getPrincipalPointX},
                          Row{&B::principalPointY, &V::getPrincipalPointY});
    else if constexpr (is<V, PointCloudDirectColorization::PointCloudDirectColorization>)
        return std::tuple(Row{&B::images, &V::getImages}, Row{&B::distortion, &V::getDistortion},
                          Row{&B::numberOfImagesUsedPerPoint, &V::getNumberOfImagesUsedPerPoint},
                          Row{&B::verticalAngleThreshold, &V::getVerticalAngleThreshold},
                          Row{&B::occlusionNumberOfNeighbors, &V::getOcclusionNumberOfNeighbors},
                          Row{&B::occlusionFactor, &V::getOcclusionFactor},
                          Row{&B::octreeMinimumPointsPerBlock, &V::getOctreeMinimumPointsPerBlock},
                          Row{&B::octreeResolution, &V::getOctreeResolution},
                          Row{&B::samplingResolution, &V::getSamplingResolution},
                          Row{&B::pointCloudSamplingReadFactor, &V::getPointCloudSamplingReadFactor},
                          Row{&B::imageResizingFactor, &V::getImageResizingFactor},
                          Row{&B::imageReadSamplingFactor, &V::getImageReadSamplingFactor},
                          Row{&B::flightHeight, &V::getFlightHeight},
                          Row{&B::terrainTypology, &V::getTerrainTypology});
    else if constexpr (is<V, MorphologicalRejection>)
        return std::tuple(Row{&B::copWeighting, &V::getCopWeighting},
                          Row{&B::outlyingScoreThreshold, &V::getOutlyingScoreThreshold},
                          Row{&B::averagePointCloudDensity, &V::getAveragePointCloudDensity});
    else if constexpr (is<V, PrecisionEnhancement>)
        return std::tuple(Row{&B::morphologicalRejection, &V::getMorphologicalRejection},
                          Row{&B::minimumNeighborsToBeIsolated, &V::getMinimumNeighborsToBeIsolated},
                          Row{&B::maximumNeighborsToConsider, &V::getMaximumNeighborsToConsider},
                          Row{&B::minimumNeighborsToBeProcessed, &V::getMinimumNeighborsToBeProcessed},
                          Row{&B::sharpener, &V::getSharpener},
                          Row{&B::suppressionThreshold, &V::getSuppressionThreshold},
                          Row{&B::averagePointCloudThickness, &V::getAveragePointCloudThickness});
    else
        return std::tuple(Row{&B::downsamplingRate, &V::getDownsamplingRate});
}

template <typename V>
constexpr auto rowsOf() {
    using B = typename V::Builder;
    if constexpr (is<V, Vector3> || is<V, MountingAngles3>)
        return std::tuple(Row{&B::z, &V::getZ}, Row{&B::y, &V::getY}, Row{&B::x, &V::getX});
    else if constexpr (is<V, Angles3>)
        return std::tuple(Row{&B::yaw, &V::getYaw}, Row{&B::pitch, &V::getPitch}, Row{&B::roll, &V::getRoll});
    else if constexpr (is<V, CameraAngles3>)
        return std::tuple(Row{&B::tz, &V::getTz}, Row{&B::ty, &V::getTy}, Row{&B::tx, &V::getTx});
    else if constexpr (is<V, FieldOfView>)
        return std::tuple(Row{&B::filter, &V::getFilter}, Row{&B::view, &V::getView},
                          Row{&B::isDefault, &V::getIsDefault});
    else if constexpr (is<V, FieldOfViews>)
        return std::tuple(
            Row{&B::listOfFieldOfViews, [](const V& value) { return value.getListOfFieldOfViews(); }});
    else if constexpr (is<V, Camera>)
        return std::tuple(
            Row{&B::orientation, &V::getOrientation, Texts{"nadir", "a-left", "d-right"},
                "Profile Camera: orientation"},
            Row{&B::eventTimeShift, &V::getEventTimeShift}, Row{&B::kappaCardinal, &V::getKappaCardinal},
            Row{&B::boresightAngles, &V::getBoresightAngles}, Row{&B::leverArm, &V::getLeverArm});
    else if constexpr (is<V, Cameras>)
        return std::tuple(Row{&B::listOfCameras, [](const V& value) { return value.getListOfCameras(); }});
    else if constexpr (is<V, Imu>)
        return std::tuple(Row{&B::gnssStandardDeviation, &V::getGnssStandardDeviation,
                              Texts{"SD10cm", "SD10cm", "SD10m"}, "Profile Imu: GNSS standard deviation"},
                          Row{&B::mountingAnglesAircraft, &V::getMountingAnglesAircraft},
                          Row{&B::mountingAngles, &V::getMountingAngles},
                          Row{&B::leverArmAntenna, &V::getLeverArmAntenna},
                          Row{&B::leverArm, &V::getLeverArm});
    else if constexpr (is<V, Trajectory>)
        return std::tuple(Row{&B::stabilizedMount, &V::getStabilizedMount,
                              Texts{"none", "none", "synthetize gimbal data"},
                              "Profile Trajectory: stabilized mount"},
                          Row{&B::cameras, &V::getCameras}, Row{&B::imuExternal, &V::getImuExternal},
                          Row{&B::imuOnboard, &V::getImuOnboard});
    else if constexpr (is<V, BoresightCalibration>)
        return std::tuple(Row{&B::lidarAccuracy, &V::getLidarAccuracy},
                          Row{&B::attitudeAccuracy, &V::getAttitudeAccuracy},
                          Row{&B::positionAccuracy, &V::getPositionAccuracy},
                          Row{&B::leverArmAccuracy, &V::getLeverArmAccuracy},
                          Row{&B::numberOfCriteria, &V::getNumberOfCriteria},
                          Row{&B::initialBoresightAngles, &V::getInitialBoresightAngles},
                          Row{&B::fieldOfView, &V::getFieldOfView});
    else if constexpr (is<V, CalibrationDocument>)
        return std::tuple(Row{&B::name, &V::getName}, Row{&B::content, &V::getContent});
    else if constexpr (is<V, Georeferencing>)
        return std::tuple(Row{&B::calibrationDocument, &V::getCalibrationDocument},
                          Row{&B::boresightAngles, &V::getBoresightAngles},
                          Row{&B::fieldOfViews, &V::getFieldOfViews});
    else if constexpr (is<V, Lidar>)
        return std::tuple(
            Row{&B::alignment, &V::getAlignment, {"z y -x", "z y -x", "z y x"}, "Profile Lidar: alignment"},
            Row{&B::pointCloudDirectColorization, &V::getPointCloudDirectColorization},
            Row{&B::groundClassification, &V::getGroundClassification},
            Row{&B::stripAdjustment, &V::getStripAdjustment},
            Row{&B::lidarCoveragePreview, &V::getLidarCoveragePreview},
            Row{&B::precisionEnhancement, &V::getPrecisionEnhancement},
            Row{&B::boresightCalibration, &V::getBoresightCalibration},
            Row{&B::georeferencing, &V::getGeoreferencing}, Row{&B::leverArm, &V::getLeverArm},
            Row{&B::imuLatency, &V::getImuLatency}, Row{&B::fileExtension, &V::getFileExtension});
    else if constexpr (is<V, Profile>)
        return std::tuple(Row{&B::trajectory, &V::getTrajectory}, Row{&B::lidar, &V::getLidar},
                          Row{&B::name, &V::getName}, Row{&B::product, &V::getProduct},
                          Row{&B::serialNumber, &V::getSerialNumber}, Row{&B::id, &V::getId},
                          Row{&B::creationTime, &V::getCreationTime},
                          Row{&B::lastModificationTime, &V::getLastModificationTime});
    else
        return processingRowsOf<V>();
}

/// Calls `check.template operator()<Value>()` for every value type.
template <typename Check>
void forEachValueType(const Check& check) {
    const auto run = [&]<typename... Values>(std::tuple<Values*...>) {
        (check.template operator()<Values>(), ...);
    };
    run(std::tuple<Vector3*, Angles3*, CameraAngles3*, MountingAngles3*, FieldOfView*, FieldOfViews*, Camera*,
                   Cameras*, Imu*, Trajectory*, BoresightCalibration*, CalibrationDocument*, Georeferencing*,
                   Lidar*, Profile*, StripAdjustment::Preprocessing*, StripAdjustment::Sampling*,
                   StripAdjustment::Rejection*, StripAdjustment::Minimization*,
                   StripAdjustment::StripAdjustment*, GroundClassification::Segmentation*,
                   GroundClassification::Densification*, GroundClassification::DigitalSurfaceModel*,
                   GroundClassification::InteriorProcessing*, GroundClassification::HullProcessing*,
                   GroundClassification::GroundClassification*, PointCloudDirectColorization::Distortion*,
                   PointCloudDirectColorization::Images*,
                   PointCloudDirectColorization::PointCloudDirectColorization*, MorphologicalRejection*,
                   PrecisionEnhancement*, LidarCoveragePreview*>());
}

} // namespace norel::Desktop::Domain::Payloads::Test

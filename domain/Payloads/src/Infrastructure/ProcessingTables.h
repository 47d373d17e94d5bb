#pragma once

#include "DocumentKeys.h"
#include "DocumentRows.h"

/// The format of the processing settings in the profile-list document, with one table per object and one row
/// per key.
namespace norel::Desktop::Domain::Payloads {

template <>
struct DocumentTable<PrecisionEnhancement> : DocumentTableOf<PrecisionEnhancement> {
    static const auto& rows() {
        static const std::tuple table{
            required(Keys::AVERAGE_POINT_CLOUD_THICKNESS, &Fields::averagePointCloudThickness,
                     &Builder::averagePointCloudThickness),
            required("suppression_threshold", &Fields::suppressionThreshold, &Builder::suppressionThreshold),
            required("sharpener", &Fields::sharpener, &Builder::sharpener, NO_UNIT),
            required("minimum_neighbors_to_be_processed", &Fields::minimumNeighborsToBeProcessed,
                     &Builder::minimumNeighborsToBeProcessed, NO_UNIT),
            required("maximum_neighbors_to_consider", &Fields::maximumNeighborsToConsider,
                     &Builder::maximumNeighborsToConsider, NO_UNIT),
            required("minimum_neighbors_to_be_isolated", &Fields::minimumNeighborsToBeIsolated,
                     &Builder::minimumNeighborsToBeIsolated, NO_UNIT),
            required(Keys::MORPHOLOGICAL_REJECTION, &Fields::morphologicalRejection,
                     &Builder::morphologicalRejection)};
        return table;
    }
};

template <>
struct DocumentTable<MorphologicalRejection> : DocumentTableOf<MorphologicalRejection> {
    static const auto& rows() {
        static const std::tuple table{
            required(Keys::AVERAGE_POINT_CLOUD_DENSITY, &Fields::averagePointCloudDensity,
                     &Builder::averagePointCloudDensity),
            required("outlying_score_threshold", &Fields::outlyingScoreThreshold,
                     &Builder::outlyingScoreThreshold, NO_UNIT),
            required("cop_weighting", &Fields::copWeighting, &Builder::copWeighting, NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<LidarCoveragePreview> : DocumentTableOf<LidarCoveragePreview> {
    static const auto& rows() {
        static const std::tuple table{required("downsampling_rate", &Fields::downsamplingRate,
                                               &Builder::downsamplingRate, VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::StripAdjustment> : DocumentTableOf<StripAdjustment::StripAdjustment> {
    static const auto& rows() {
        static const std::tuple table{
            required("temporal_time_frame", &Fields::temporalTimeFrame, &Builder::temporalTimeFrame),
            required("sampling", &Fields::sampling, &Builder::sampling),
            required("rejection", &Fields::rejection, &Builder::rejection),
            required("preprocessing", &Fields::preprocessing, &Builder::preprocessing),
            required("minimization", &Fields::minimization, &Builder::minimization)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Sampling> : DocumentTableOf<StripAdjustment::Sampling> {
    static const auto& rows() {
        static const std::tuple table{
            required("read_fraction_denominator", &Fields::readFractionDenominator,
                     &Builder::readFractionDenominator, VALUE_ONLY | NO_UNIT),
            required("normal_sample_size", &Fields::normalSampleSize, &Builder::normalSampleSize, NO_UNIT),
            required("uniform_sampling_radius", &Fields::uniformSamplingRadius,
                     &Builder::uniformSamplingRadius),
            required("normal_sampling_slope_interval", &Fields::normalSamplingSlopeInterval,
                     &Builder::normalSamplingSlopeInterval),
            required("random_sampling_factor", &Fields::randomSamplingFactor, &Builder::randomSamplingFactor,
                     VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Rejection> : DocumentTableOf<StripAdjustment::Rejection> {
    static const auto& rows() {
        static const std::tuple table{
            required("maximum_angle", &Fields::maximumAngle, &Builder::maximumAngle, VALUE_ONLY),
            required("std_estimation_factor", &Fields::stdEstimationFactor, &Builder::stdEstimationFactor,
                     VALUE_ONLY | NO_UNIT),
            required("z_distance_score", &Fields::zDistanceScore, &Builder::zDistanceScore,
                     VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Preprocessing> : DocumentTableOf<StripAdjustment::Preprocessing> {
    static const auto& rows() {
        static const std::tuple table{
            required("neighbors_search_radius", &Fields::neighborsSearchRadius,
                     &Builder::neighborsSearchRadius),
            required("minimum_neighbors_to_be_processed", &Fields::minimumNeighborsToBeProcessed,
                     &Builder::minimumNeighborsToBeProcessed, NO_UNIT),
            required("maximum_roughness", &Fields::maximumRoughness, &Builder::maximumRoughness, NO_UNIT),
            required("intersection_distance", &Fields::intersectionDistance, &Builder::intersectionDistance),
            required("intersection_minimum_points", &Fields::intersectionMinimumPoints,
                     &Builder::intersectionMinimumPoints, NO_UNIT),
            required("intersection_maximum_vertical_distance", &Fields::intersectionMaximumVerticalDistance,
                     &Builder::intersectionMaximumVerticalDistance),
            required("line_minimum_points", &Fields::lineMinimumPoints, &Builder::lineMinimumPoints,
                     VALUE_ONLY | NO_UNIT),
            required("reference_line_minimum_points", &Fields::referenceLineMinimumPoints,
                     &Builder::referenceLineMinimumPoints, VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Minimization> : DocumentTableOf<StripAdjustment::Minimization> {
    static const auto& rows() {
        static const std::tuple table{
            required("ls_angle_epsilon", &Fields::lsAngleEpsilon, &Builder::lsAngleEpsilon, VALUE_ONLY),
            required("ls_distance_epsilon", &Fields::lsDistanceEpsilon, &Builder::lsDistanceEpsilon,
                     VALUE_ONLY),
            required("ls_probability", &Fields::lsProbability, &Builder::lsProbability, VALUE_ONLY | NO_UNIT),
            required("maximum_inner_loop_count", &Fields::maximumInnerLoopCount,
                     &Builder::maximumInnerLoopCount, VALUE_ONLY | NO_UNIT),
            required("maximum_outer_loop_count", &Fields::maximumOuterLoopCount,
                     &Builder::maximumOuterLoopCount, VALUE_ONLY | NO_UNIT),
            required("counter_chi2_loop_maximum", &Fields::counterChi2LoopMaximum,
                     &Builder::counterChi2LoopMaximum, VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::GroundClassification>
    : DocumentTableOf<GroundClassification::GroundClassification> {
    static const auto& rows() {
        static const std::tuple table{
            required("maximum_building_size", &Fields::maximumBuildingSize, &Builder::maximumBuildingSize),
            required("maximum_terrain_slope", &Fields::maximumTerrainSlope, &Builder::maximumTerrainSlope),
            required("number_of_neighbors", &Fields::numberOfNeighbors, &Builder::numberOfNeighbors, NO_UNIT),
            required("interior_processing", &Fields::interiorProcessing, &Builder::interiorProcessing),
            required("hull_processing", &Fields::hullProcessing, &Builder::hullProcessing),
            required("terrain_typology", &Fields::terrainTypology, &Builder::terrainTypology),
            required(Keys::DSM, &Fields::digitalSurfaceModel, &Builder::digitalSurfaceModel)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::InteriorProcessing>
    : DocumentTableOf<GroundClassification::InteriorProcessing> {
    static const auto& rows() {
        static const std::tuple table{
            required("densification", &Fields::densification, &Builder::densification),
            required("segmentation", &Fields::segmentation, &Builder::segmentation)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::HullProcessing>
    : DocumentTableOf<GroundClassification::HullProcessing> {
    static const auto& rows() {
        static const std::tuple table{
            required("convex_band_width", &Fields::convexBandWidth, &Builder::convexBandWidth),
            required("segmentation", &Fields::segmentation, &Builder::segmentation)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::Segmentation>
    : DocumentTableOf<GroundClassification::Segmentation> {
    static const auto& rows() {
        static const std::tuple table{required("maximum_normal_deviation", &Fields::maximumNormalDeviation,
                                               &Builder::maximumNormalDeviation),
                                      required("maximum_orthogonal_distance",
                                               &Fields::maximumOrthogonalDistance,
                                               &Builder::maximumOrthogonalDistance),
                                      required("minimum_points_per_region", &Fields::minimumPointsPerRegion,
                                               &Builder::minimumPointsPerRegion, NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::Densification>
    : DocumentTableOf<GroundClassification::Densification> {
    static const auto& rows() {
        static const std::tuple table{required("maximum_angular_deviation", &Fields::maximumAngularDeviation,
                                               &Builder::maximumAngularDeviation),
                                      required("maximum_orthogonal_distance",
                                               &Fields::maximumOrthogonalDistance,
                                               &Builder::maximumOrthogonalDistance)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::DigitalSurfaceModel>
    : DocumentTableOf<GroundClassification::DigitalSurfaceModel> {
    static const auto& rows() {
        static const std::tuple table{
            required("grid_size", &Fields::gridSize, &Builder::gridSize),
            required("tiles_size", &Fields::tilesSize, &Builder::tilesSize),
            required("tiles_overlap", &Fields::tilesOverlap, &Builder::tilesOverlap)};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::PointCloudDirectColorization>
    : DocumentTableOf<PointCloudDirectColorization::PointCloudDirectColorization> {
    static const auto& rows() {
        static const std::tuple table{
            required("flight_height", &Fields::flightHeight, &Builder::flightHeight),
            required("terrain_typology", &Fields::terrainTypology, &Builder::terrainTypology),
            required("image_read_sampling_factor", &Fields::imageReadSamplingFactor,
                     &Builder::imageReadSamplingFactor, NO_UNIT),
            required("image_resizing_factor", &Fields::imageResizingFactor, &Builder::imageResizingFactor,
                     NO_UNIT),
            required("point_cloud_sampling_read_factor", &Fields::pointCloudSamplingReadFactor,
                     &Builder::pointCloudSamplingReadFactor, VALUE_ONLY | NO_UNIT),
            required("sampling_resolution", &Fields::samplingResolution, &Builder::samplingResolution),
            required("octree_resolution", &Fields::octreeResolution, &Builder::octreeResolution, VALUE_ONLY),
            required("octree_minimum_points_per_block", &Fields::octreeMinimumPointsPerBlock,
                     &Builder::octreeMinimumPointsPerBlock, VALUE_ONLY | NO_UNIT),
            required("occlusion_factor", &Fields::occlusionFactor, &Builder::occlusionFactor, NO_UNIT),
            required("occlusion_number_of_neighbors", &Fields::occlusionNumberOfNeighbors,
                     &Builder::occlusionNumberOfNeighbors, NO_UNIT),
            required("vertical_angle_threshold", &Fields::verticalAngleThreshold,
                     &Builder::verticalAngleThreshold, NO_UNIT),
            required("number_images_used_per_point", &Fields::numberOfImagesUsedPerPoint,
                     &Builder::numberOfImagesUsedPerPoint, NO_UNIT),
            required("distortion", &Fields::distortion, &Builder::distortion),
            required("images", &Fields::images, &Builder::images)};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::Distortion>
    : DocumentTableOf<PointCloudDirectColorization::Distortion> {
    static const auto& rows() {
        static const std::tuple table{
            required("radial_1", &Fields::radial1, &Builder::radial1, NO_UNIT),
            required("radial_2", &Fields::radial2, &Builder::radial2, NO_UNIT),
            required("radial_3", &Fields::radial3, &Builder::radial3, NO_UNIT),
            required("tangential_1", &Fields::tangential1, &Builder::tangential1, NO_UNIT),
            required("tangential_2", &Fields::tangential2, &Builder::tangential2, NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::Images>
    : DocumentTableOf<PointCloudDirectColorization::Images> {
    static const auto& rows() {
        static const std::tuple table{
            required("width", &Fields::width, &Builder::width),
            required("height", &Fields::height, &Builder::height),
            required("focal_length", &Fields::focalLength, &Builder::focalLength),
            required("principal_point_x", &Fields::principalPointX, &Builder::principalPointX),
            required("principal_point_y", &Fields::principalPointY, &Builder::principalPointY)};
        return table;
    }
};

} // namespace norel::Desktop::Domain::Payloads

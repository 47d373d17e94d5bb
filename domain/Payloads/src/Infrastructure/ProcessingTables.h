#pragma once

#include "DocumentKeys.h"
#include "DocumentRows.h"

/// The format of the processing settings in the profile-list document, a table an object, a row a key.
namespace norel::Desktop::Domain::Payloads {

template <>
struct DocumentTable<PrecisionEnhancement> : DocumentTableOf<PrecisionEnhancement> {
    static const auto& rows() {
        static const std::tuple table{
            Required{Keys::AVERAGE_POINT_CLOUD_THICKNESS, &Fields::averagePointCloudThickness,
                     &Builder::averagePointCloudThickness},
            Required{"suppression_threshold", &Fields::suppressionThreshold, &Builder::suppressionThreshold},
            Required{"sharpener", &Fields::sharpener, &Builder::sharpener, NO_UNIT},
            Required{"minimum_neighbors_to_be_processed", &Fields::minimumNeighborsToBeProcessed,
                     &Builder::minimumNeighborsToBeProcessed, NO_UNIT},
            Required{"maximum_neighbors_to_consider", &Fields::maximumNeighborsToConsider,
                     &Builder::maximumNeighborsToConsider, NO_UNIT},
            Required{"minimum_neighbors_to_be_isolated", &Fields::minimumNeighborsToBeIsolated,
                     &Builder::minimumNeighborsToBeIsolated, NO_UNIT},
            Required{Keys::MORPHOLOGICAL_REJECTION, &Fields::morphologicalRejection,
                     &Builder::morphologicalRejection}};
        return table;
    }
};

template <>
struct DocumentTable<MorphologicalRejection> : DocumentTableOf<MorphologicalRejection> {
    static const auto& rows() {
        static const std::tuple table{
            Required{Keys::AVERAGE_POINT_CLOUD_DENSITY, &Fields::averagePointCloudDensity,
                     &Builder::averagePointCloudDensity},
            Required{"outlying_score_threshold", &Fields::outlyingScoreThreshold,
                     &Builder::outlyingScoreThreshold, NO_UNIT},
            Required{"cop_weighting", &Fields::copWeighting, &Builder::copWeighting, NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<LidarCoveragePreview> : DocumentTableOf<LidarCoveragePreview> {
    static const auto& rows() {
        static const std::tuple table{Required{"downsampling_rate", &Fields::downsamplingRate,
                                               &Builder::downsamplingRate, VALUE_ONLY | NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::StripAdjustment> : DocumentTableOf<StripAdjustment::StripAdjustment> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"temporal_time_frame", &Fields::temporalTimeFrame, &Builder::temporalTimeFrame},
            Required{"sampling", &Fields::sampling, &Builder::sampling},
            Required{"rejection", &Fields::rejection, &Builder::rejection},
            Required{"preprocessing", &Fields::preprocessing, &Builder::preprocessing},
            Required{"minimization", &Fields::minimization, &Builder::minimization}};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Sampling> : DocumentTableOf<StripAdjustment::Sampling> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"read_fraction_denominator", &Fields::readFractionDenominator,
                     &Builder::readFractionDenominator, VALUE_ONLY | NO_UNIT},
            Required{"normal_sample_size", &Fields::normalSampleSize, &Builder::normalSampleSize, NO_UNIT},
            Required{"uniform_sampling_radius", &Fields::uniformSamplingRadius,
                     &Builder::uniformSamplingRadius},
            Required{"normal_sampling_slope_interval", &Fields::normalSamplingSlopeInterval,
                     &Builder::normalSamplingSlopeInterval},
            Required{"random_sampling_factor", &Fields::randomSamplingFactor, &Builder::randomSamplingFactor,
                     VALUE_ONLY | NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Rejection> : DocumentTableOf<StripAdjustment::Rejection> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"maximum_angle", &Fields::maximumAngle, &Builder::maximumAngle, VALUE_ONLY},
            Required{"std_estimation_factor", &Fields::stdEstimationFactor, &Builder::stdEstimationFactor,
                     VALUE_ONLY | NO_UNIT},
            Required{"z_distance_score", &Fields::zDistanceScore, &Builder::zDistanceScore,
                     VALUE_ONLY | NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Preprocessing> : DocumentTableOf<StripAdjustment::Preprocessing> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"neighbors_search_radius", &Fields::neighborsSearchRadius,
                     &Builder::neighborsSearchRadius},
            Required{"minimum_neighbors_to_be_processed", &Fields::minimumNeighborsToBeProcessed,
                     &Builder::minimumNeighborsToBeProcessed, NO_UNIT},
            Required{"maximum_roughness", &Fields::maximumRoughness, &Builder::maximumRoughness, NO_UNIT},
            Required{"intersection_distance", &Fields::intersectionDistance, &Builder::intersectionDistance},
            Required{"intersection_minimum_points", &Fields::intersectionMinimumPoints,
                     &Builder::intersectionMinimumPoints, NO_UNIT},
            Required{"intersection_maximum_vertical_distance", &Fields::intersectionMaximumVerticalDistance,
                     &Builder::intersectionMaximumVerticalDistance},
            Required{"line_minimum_points", &Fields::lineMinimumPoints, &Builder::lineMinimumPoints,
                     VALUE_ONLY | NO_UNIT},
            Required{"reference_line_minimum_points", &Fields::referenceLineMinimumPoints,
                     &Builder::referenceLineMinimumPoints, VALUE_ONLY | NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Minimization> : DocumentTableOf<StripAdjustment::Minimization> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"ls_angle_epsilon", &Fields::lsAngleEpsilon, &Builder::lsAngleEpsilon, VALUE_ONLY},
            Required{"ls_distance_epsilon", &Fields::lsDistanceEpsilon, &Builder::lsDistanceEpsilon,
                     VALUE_ONLY},
            Required{"ls_probability", &Fields::lsProbability, &Builder::lsProbability, VALUE_ONLY | NO_UNIT},
            Required{"maximum_inner_loop_count", &Fields::maximumInnerLoopCount,
                     &Builder::maximumInnerLoopCount, VALUE_ONLY | NO_UNIT},
            Required{"maximum_outer_loop_count", &Fields::maximumOuterLoopCount,
                     &Builder::maximumOuterLoopCount, VALUE_ONLY | NO_UNIT},
            Required{"counter_chi2_loop_maximum", &Fields::counterChi2LoopMaximum,
                     &Builder::counterChi2LoopMaximum, VALUE_ONLY | NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::GroundClassification>
    : DocumentTableOf<GroundClassification::GroundClassification> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"maximum_building_size", &Fields::maximumBuildingSize, &Builder::maximumBuildingSize},
            Required{"maximum_terrain_slope", &Fields::maximumTerrainSlope, &Builder::maximumTerrainSlope},
            Required{"number_of_neighbors", &Fields::numberOfNeighbors, &Builder::numberOfNeighbors, NO_UNIT},
            Required{"interior_processing", &Fields::interiorProcessing, &Builder::interiorProcessing},
            Required{"hull_processing", &Fields::hullProcessing, &Builder::hullProcessing},
            Required{"terrain_typology", &Fields::terrainTypology, &Builder::terrainTypology},
            Required{Keys::DSM, &Fields::digitalSurfaceModel, &Builder::digitalSurfaceModel}};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::InteriorProcessing>
    : DocumentTableOf<GroundClassification::InteriorProcessing> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"densification", &Fields::densification, &Builder::densification},
            Required{"segmentation", &Fields::segmentation, &Builder::segmentation}};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::HullProcessing>
    : DocumentTableOf<GroundClassification::HullProcessing> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"convex_band_width", &Fields::convexBandWidth, &Builder::convexBandWidth},
            Required{"segmentation", &Fields::segmentation, &Builder::segmentation}};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::Segmentation>
    : DocumentTableOf<GroundClassification::Segmentation> {
    static const auto& rows() {
        static const std::tuple table{Required{"maximum_normal_deviation", &Fields::maximumNormalDeviation,
                                               &Builder::maximumNormalDeviation},
                                      Required{"maximum_orthogonal_distance",
                                               &Fields::maximumOrthogonalDistance,
                                               &Builder::maximumOrthogonalDistance},
                                      Required{"minimum_points_per_region", &Fields::minimumPointsPerRegion,
                                               &Builder::minimumPointsPerRegion, NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::Densification>
    : DocumentTableOf<GroundClassification::Densification> {
    static const auto& rows() {
        static const std::tuple table{Required{"maximum_angular_deviation", &Fields::maximumAngularDeviation,
                                               &Builder::maximumAngularDeviation},
                                      Required{"maximum_orthogonal_distance",
                                               &Fields::maximumOrthogonalDistance,
                                               &Builder::maximumOrthogonalDistance}};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::DigitalSurfaceModel>
    : DocumentTableOf<GroundClassification::DigitalSurfaceModel> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"grid_size", &Fields::gridSize, &Builder::gridSize},
            Required{"tiles_size", &Fields::tilesSize, &Builder::tilesSize},
            Required{"tiles_overlap", &Fields::tilesOverlap, &Builder::tilesOverlap}};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::PointCloudDirectColorization>
    : DocumentTableOf<PointCloudDirectColorization::PointCloudDirectColorization> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"flight_height", &Fields::flightHeight, &Builder::flightHeight},
            Required{"terrain_typology", &Fields::terrainTypology, &Builder::terrainTypology},
            Required{"image_read_sampling_factor", &Fields::imageReadSamplingFactor,
                     &Builder::imageReadSamplingFactor, NO_UNIT},
            Required{"image_resizing_factor", &Fields::imageResizingFactor, &Builder::imageResizingFactor,
                     NO_UNIT},
            Required{"point_cloud_sampling_read_factor", &Fields::pointCloudSamplingReadFactor,
                     &Builder::pointCloudSamplingReadFactor, VALUE_ONLY | NO_UNIT},
            Required{"sampling_resolution", &Fields::samplingResolution, &Builder::samplingResolution},
            Required{"octree_resolution", &Fields::octreeResolution, &Builder::octreeResolution, VALUE_ONLY},
            Required{"octree_minimum_points_per_block", &Fields::octreeMinimumPointsPerBlock,
                     &Builder::octreeMinimumPointsPerBlock, VALUE_ONLY | NO_UNIT},
            Required{"occlusion_factor", &Fields::occlusionFactor, &Builder::occlusionFactor, NO_UNIT},
            Required{"occlusion_number_of_neighbors", &Fields::occlusionNumberOfNeighbors,
                     &Builder::occlusionNumberOfNeighbors, NO_UNIT},
            Required{"vertical_angle_threshold", &Fields::verticalAngleThreshold,
                     &Builder::verticalAngleThreshold, NO_UNIT},
            Required{"number_images_used_per_point", &Fields::numberOfImagesUsedPerPoint,
                     &Builder::numberOfImagesUsedPerPoint, NO_UNIT},
            Required{"distortion", &Fields::distortion, &Builder::distortion},
            Required{"images", &Fields::images, &Builder::images}};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::Distortion>
    : DocumentTableOf<PointCloudDirectColorization::Distortion> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"radial_1", &Fields::radial1, &Builder::radial1, NO_UNIT},
            Required{"radial_2", &Fields::radial2, &Builder::radial2, NO_UNIT},
            Required{"radial_3", &Fields::radial3, &Builder::radial3, NO_UNIT},
            Required{"tangential_1", &Fields::tangential1, &Builder::tangential1, NO_UNIT},
            Required{"tangential_2", &Fields::tangential2, &Builder::tangential2, NO_UNIT}};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::Images>
    : DocumentTableOf<PointCloudDirectColorization::Images> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"width", &Fields::width, &Builder::width},
            Required{"height", &Fields::height, &Builder::height},
            Required{"focal_length", &Fields::focalLength, &Builder::focalLength},
            Required{"principal_point_x", &Fields::principalPointX, &Builder::principalPointX},
            Required{"principal_point_y", &Fields::principalPointY, &Builder::principalPointY}};
        return table;
    }
};

} // namespace norel::Desktop::Domain::Payloads

#pragma once

#include "AllowedValues.h"
#include "DocumentKeys.h"
#include "DocumentRows.h"

/// The format of the processing settings in the profile-list document, with one table per object and one row
/// per key.
namespace norel::Desktop::Domain::Payloads {

template <>
struct DocumentTable<PrecisionEnhancement> : DocumentTableOf<PrecisionEnhancement> {
    static constexpr std::string_view OBSOLETE_KEY = "neighbors_search_radius";

    static const auto& rows() {
        static const std::tuple table{
            required(Keys::AVERAGE_POINT_CLOUD_THICKNESS, "Average thickness of the point cloud",
                     &Fields::averagePointCloudThickness, &Builder::averagePointCloudThickness),
            required("suppression_threshold", "Suppression threshold", &Fields::suppressionThreshold,
                     &Builder::suppressionThreshold),
            required("sharpener", "Degree of sharpening", &Fields::sharpener, &Builder::sharpener, NO_UNIT),
            required("minimum_neighbors_to_be_processed", "Fewest neighbours of a point that is processed",
                     &Fields::minimumNeighborsToBeProcessed, &Builder::minimumNeighborsToBeProcessed,
                     NO_UNIT),
            required("maximum_neighbors_to_consider", "Most neighbours of a point that are considered",
                     &Fields::maximumNeighborsToConsider, &Builder::maximumNeighborsToConsider, NO_UNIT),
            required("minimum_neighbors_to_be_isolated", "Fewest neighbours for the test of isolated points",
                     &Fields::minimumNeighborsToBeIsolated, &Builder::minimumNeighborsToBeIsolated, NO_UNIT),
            required(Keys::MORPHOLOGICAL_REJECTION, "Rejection of outliers from the surrounding surface",
                     &Fields::morphologicalRejection, &Builder::morphologicalRejection)};
        return table;
    }
};

template <>
struct DocumentTable<MorphologicalRejection> : DocumentTableOf<MorphologicalRejection> {
    static constexpr std::string_view OBSOLETE_KEY = "number_of_neighbors";

    static const auto& rows() {
        static const std::tuple table{
            required(Keys::AVERAGE_POINT_CLOUD_DENSITY, "Average density of the point cloud",
                     &Fields::averagePointCloudDensity, &Builder::averagePointCloudDensity),
            required("outlying_score_threshold", "Threshold of the outlying score",
                     &Fields::outlyingScoreThreshold, &Builder::outlyingScoreThreshold, NO_UNIT),
            required("cop_weighting", "COP weighting", &Fields::copWeighting, &Builder::copWeighting,
                     NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<LidarCoveragePreview> : DocumentTableOf<LidarCoveragePreview> {
    static const auto& rows() {
        static const std::tuple table{
            required("downsampling_rate",
                     "Rate at which the point cloud is downsampled, greater than 0 and less than 1",
                     &Fields::downsamplingRate, &Builder::downsamplingRate, VALUE_ONLY | NO_UNIT)
                .allowing({.valueBetween = AllowedValues::DOWNSAMPLING_RATE})};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::StripAdjustment> : DocumentTableOf<StripAdjustment::StripAdjustment> {
    static const auto& rows() {
        static const std::tuple table{
            required("temporal_time_frame", "Length of the time frame", &Fields::temporalTimeFrame,
                     &Builder::temporalTimeFrame),
            required("sampling", "Which points take part", &Fields::sampling, &Builder::sampling),
            required("rejection", "Which correspondences between strips are rejected", &Fields::rejection,
                     &Builder::rejection),
            required("preprocessing", "How the points of a strip are prepared", &Fields::preprocessing,
                     &Builder::preprocessing),
            required("minimization", "When the least-squares minimization ends", &Fields::minimization,
                     &Builder::minimization)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Sampling> : DocumentTableOf<StripAdjustment::Sampling> {
    static const auto& rows() {
        static const std::tuple table{
            required("read_fraction_denominator", "N: one of N points is read",
                     &Fields::readFractionDenominator, &Builder::readFractionDenominator,
                     VALUE_ONLY | NO_UNIT),
            required("normal_sample_size", "Size of the normal sample", &Fields::normalSampleSize,
                     &Builder::normalSampleSize, NO_UNIT),
            required("uniform_sampling_radius", "Radius of the uniform sampling",
                     &Fields::uniformSamplingRadius, &Builder::uniformSamplingRadius),
            required("normal_sampling_slope_interval", "Slope interval of the normal sampling",
                     &Fields::normalSamplingSlopeInterval, &Builder::normalSamplingSlopeInterval),
            required("random_sampling_factor", "Factor of the random sampling", &Fields::randomSamplingFactor,
                     &Builder::randomSamplingFactor, VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Rejection> : DocumentTableOf<StripAdjustment::Rejection> {
    static const auto& rows() {
        static const std::tuple table{
            required("maximum_angle", "Largest angle of a correspondence", &Fields::maximumAngle,
                     &Builder::maximumAngle, VALUE_ONLY),
            required("std_estimation_factor", "Factor of the estimated standard deviation",
                     &Fields::stdEstimationFactor, &Builder::stdEstimationFactor, VALUE_ONLY | NO_UNIT),
            required("z_distance_score", "Score of the distance in z", &Fields::zDistanceScore,
                     &Builder::zDistanceScore, VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Preprocessing> : DocumentTableOf<StripAdjustment::Preprocessing> {
    static const auto& rows() {
        static const std::tuple table{
            required("neighbors_search_radius", "Radius of the search for neighbours",
                     &Fields::neighborsSearchRadius, &Builder::neighborsSearchRadius),
            required("minimum_neighbors_to_be_processed", "Fewest neighbours of a point that is processed",
                     &Fields::minimumNeighborsToBeProcessed, &Builder::minimumNeighborsToBeProcessed,
                     NO_UNIT),
            required("maximum_roughness", "Largest roughness of a neighbourhood", &Fields::maximumRoughness,
                     &Builder::maximumRoughness, NO_UNIT),
            required("intersection_distance", "Distance of an intersection", &Fields::intersectionDistance,
                     &Builder::intersectionDistance),
            required("intersection_minimum_points", "Fewest points of an intersection",
                     &Fields::intersectionMinimumPoints, &Builder::intersectionMinimumPoints, NO_UNIT),
            required("intersection_maximum_vertical_distance", "Largest vertical distance in an intersection",
                     &Fields::intersectionMaximumVerticalDistance,
                     &Builder::intersectionMaximumVerticalDistance),
            required("line_minimum_points", "Fewest points of a line", &Fields::lineMinimumPoints,
                     &Builder::lineMinimumPoints, VALUE_ONLY | NO_UNIT),
            required("reference_line_minimum_points", "Fewest points of a reference line",
                     &Fields::referenceLineMinimumPoints, &Builder::referenceLineMinimumPoints,
                     VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<StripAdjustment::Minimization> : DocumentTableOf<StripAdjustment::Minimization> {
    static const auto& rows() {
        static const std::tuple table{
            required("ls_angle_epsilon", "Termination threshold of the angles", &Fields::lsAngleEpsilon,
                     &Builder::lsAngleEpsilon, VALUE_ONLY),
            required("ls_distance_epsilon", "Termination threshold of the distances",
                     &Fields::lsDistanceEpsilon, &Builder::lsDistanceEpsilon, VALUE_ONLY),
            required("ls_probability", "Probability used by the least squares", &Fields::lsProbability,
                     &Builder::lsProbability, VALUE_ONLY | NO_UNIT),
            required("maximum_inner_loop_count", "Most inner loops", &Fields::maximumInnerLoopCount,
                     &Builder::maximumInnerLoopCount, VALUE_ONLY | NO_UNIT),
            required("maximum_outer_loop_count", "Most outer loops", &Fields::maximumOuterLoopCount,
                     &Builder::maximumOuterLoopCount, VALUE_ONLY | NO_UNIT),
            required("counter_chi2_loop_maximum", "Maximum of the chi-square loop counter",
                     &Fields::counterChi2LoopMaximum, &Builder::counterChi2LoopMaximum,
                     VALUE_ONLY | NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::GroundClassification>
    : DocumentTableOf<GroundClassification::GroundClassification> {
    static const auto& rows() {
        static const std::tuple table{
            required("maximum_building_size", "Size of the largest building", &Fields::maximumBuildingSize,
                     &Builder::maximumBuildingSize),
            required("maximum_terrain_slope", "Slope of the steepest terrain", &Fields::maximumTerrainSlope,
                     &Builder::maximumTerrainSlope),
            required("number_of_neighbors", "Number of neighbours of a point", &Fields::numberOfNeighbors,
                     &Builder::numberOfNeighbors, NO_UNIT),
            required("interior_processing", "Settings for the interior of the surveyed area",
                     &Fields::interiorProcessing, &Builder::interiorProcessing),
            required("hull_processing", "Settings for the band along the convex hull of the surveyed area",
                     &Fields::hullProcessing, &Builder::hullProcessing),
            required("terrain_typology", "Names of the terrain types", &Fields::terrainTypology,
                     &Builder::terrainTypology),
            required(Keys::DSM, "Grid and tiles of the digital surface model", &Fields::digitalSurfaceModel,
                     &Builder::digitalSurfaceModel)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::InteriorProcessing>
    : DocumentTableOf<GroundClassification::InteriorProcessing> {
    static const auto& rows() {
        static const std::tuple table{required("densification", "How points are added to the ground surface",
                                               &Fields::densification, &Builder::densification),
                                      required("segmentation", "How points are segmented into planar regions",
                                               &Fields::segmentation, &Builder::segmentation)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::HullProcessing>
    : DocumentTableOf<GroundClassification::HullProcessing> {
    static const auto& rows() {
        static const std::tuple table{required("convex_band_width", "Width of the band along the convex hull",
                                               &Fields::convexBandWidth, &Builder::convexBandWidth),
                                      required("segmentation", "How points are segmented into planar regions",
                                               &Fields::segmentation, &Builder::segmentation)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::Segmentation>
    : DocumentTableOf<GroundClassification::Segmentation> {
    static const auto& rows() {
        static const std::tuple table{
            required("maximum_normal_deviation", "Largest deviation of the normals within a region",
                     &Fields::maximumNormalDeviation, &Builder::maximumNormalDeviation),
            required("maximum_orthogonal_distance", "Largest orthogonal distance within a region",
                     &Fields::maximumOrthogonalDistance, &Builder::maximumOrthogonalDistance),
            required("minimum_points_per_region", "Fewest points of a region",
                     &Fields::minimumPointsPerRegion, &Builder::minimumPointsPerRegion, NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::Densification>
    : DocumentTableOf<GroundClassification::Densification> {
    static const auto& rows() {
        static const std::tuple table{
            required("maximum_angular_deviation", "Largest angular deviation of an added point",
                     &Fields::maximumAngularDeviation, &Builder::maximumAngularDeviation),
            required("maximum_orthogonal_distance", "Largest orthogonal distance of an added point",
                     &Fields::maximumOrthogonalDistance, &Builder::maximumOrthogonalDistance)};
        return table;
    }
};

template <>
struct DocumentTable<GroundClassification::DigitalSurfaceModel>
    : DocumentTableOf<GroundClassification::DigitalSurfaceModel> {
    static const auto& rows() {
        static const std::tuple table{
            required("grid_size", "Size of a grid cell", &Fields::gridSize, &Builder::gridSize),
            required("tiles_size", "Size of a tile", &Fields::tilesSize, &Builder::tilesSize),
            required("tiles_overlap", "Overlap of neighbouring tiles", &Fields::tilesOverlap,
                     &Builder::tilesOverlap)};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::PointCloudDirectColorization>
    : DocumentTableOf<PointCloudDirectColorization::PointCloudDirectColorization> {
    static const auto& rows() {
        static const std::tuple table{
            required("flight_height", "Flight height", &Fields::flightHeight, &Builder::flightHeight),
            required("terrain_typology", "Names of the terrain types", &Fields::terrainTypology,
                     &Builder::terrainTypology),
            required("image_read_sampling_factor", "Sampling factor for reading images",
                     &Fields::imageReadSamplingFactor, &Builder::imageReadSamplingFactor, NO_UNIT),
            required("image_resizing_factor", "Factor by which images are resized",
                     &Fields::imageResizingFactor, &Builder::imageResizingFactor, NO_UNIT),
            required("point_cloud_sampling_read_factor", "Sampling factor for reading the point cloud",
                     &Fields::pointCloudSamplingReadFactor, &Builder::pointCloudSamplingReadFactor,
                     VALUE_ONLY | NO_UNIT),
            required("sampling_resolution", "Resolution of the sampling", &Fields::samplingResolution,
                     &Builder::samplingResolution),
            required("octree_resolution", "Resolution of the octree", &Fields::octreeResolution,
                     &Builder::octreeResolution, VALUE_ONLY),
            required("octree_minimum_points_per_block", "Fewest points of a block of the octree",
                     &Fields::octreeMinimumPointsPerBlock, &Builder::octreeMinimumPointsPerBlock,
                     VALUE_ONLY | NO_UNIT),
            required("occlusion_factor", "Occlusion factor", &Fields::occlusionFactor,
                     &Builder::occlusionFactor, NO_UNIT),
            required("occlusion_number_of_neighbors", "Number of neighbours considered for occlusion",
                     &Fields::occlusionNumberOfNeighbors, &Builder::occlusionNumberOfNeighbors, NO_UNIT),
            required("vertical_angle_threshold", "Threshold of the vertical angle",
                     &Fields::verticalAngleThreshold, &Builder::verticalAngleThreshold, NO_UNIT),
            required("number_images_used_per_point", "Number of images that colour a point",
                     &Fields::numberOfImagesUsedPerPoint, &Builder::numberOfImagesUsedPerPoint, NO_UNIT),
            required("distortion", "Lens distortion of the camera model", &Fields::distortion,
                     &Builder::distortion),
            required("images", "Image size, focal length and principal point of the camera model",
                     &Fields::images, &Builder::images)};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::Distortion>
    : DocumentTableOf<PointCloudDirectColorization::Distortion> {
    static const auto& rows() {
        static const std::tuple table{
            required("radial_1", "First radial coefficient", &Fields::radial1, &Builder::radial1, NO_UNIT),
            required("radial_2", "Second radial coefficient", &Fields::radial2, &Builder::radial2, NO_UNIT),
            required("radial_3", "Third radial coefficient", &Fields::radial3, &Builder::radial3, NO_UNIT),
            required("tangential_1", "First tangential coefficient", &Fields::tangential1,
                     &Builder::tangential1, NO_UNIT),
            required("tangential_2", "Second tangential coefficient", &Fields::tangential2,
                     &Builder::tangential2, NO_UNIT)};
        return table;
    }
};

template <>
struct DocumentTable<PointCloudDirectColorization::Images>
    : DocumentTableOf<PointCloudDirectColorization::Images> {
    static const auto& rows() {
        static const std::tuple table{
            required("width", "Width of the images", &Fields::width, &Builder::width),
            required("height", "Height of the images", &Fields::height, &Builder::height),
            required("focal_length", "Focal length", &Fields::focalLength, &Builder::focalLength),
            required("principal_point_x", "Principal point, from the left; may lie outside the image",
                     &Fields::principalPointX, &Builder::principalPointX),
            required("principal_point_y", "Principal point, from the top; may lie outside the image",
                     &Fields::principalPointY, &Builder::principalPointY)};
        return table;
    }
};

} // namespace norel::Desktop::Domain::Payloads

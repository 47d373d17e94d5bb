#pragma once

#include <boost/describe.hpp>
#include <boost/mp11.hpp>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

/// What a user who only wants the contents of a document would write: plain structures whose members are
/// named as the document's keys. No ranges are checked, and dates stay texts.
namespace norel::Benchmark::Plain {

struct Number {
    std::optional<double> defaultValue;
    std::optional<std::map<std::string, double>> presets;
    std::optional<double> minimum, maximum, precision;
    double value = 0;
    std::optional<std::string> unit;
};
BOOST_DESCRIBE_STRUCT(Number, (), (defaultValue, presets, minimum, maximum, precision, value, unit))

struct Xyz {
    Number x, y, z;
};
BOOST_DESCRIBE_STRUCT(Xyz, (), (x, y, z))

struct Angles {
    Number roll, pitch, yaw;
};
BOOST_DESCRIBE_STRUCT(Angles, (), (roll, pitch, yaw))

struct CameraAngles {
    Number Tx, Ty, Tz;
};
BOOST_DESCRIBE_STRUCT(CameraAngles, (), (Tx, Ty, Tz))

struct Camera {
    std::string orientation;
    Xyz lever_arm;
    CameraAngles boresight_angles;
    Number kappa_cardinal, event_time_shift;
};
BOOST_DESCRIBE_STRUCT(Camera, (),
                      (orientation, lever_arm, boresight_angles, kappa_cardinal, event_time_shift))

struct Imu {
    Xyz lever_arm, lever_arm_antenna, mounting_angles, mounting_angles_aircraft;
    std::string gnss_standard_deviation;
};
BOOST_DESCRIBE_STRUCT(Imu, (),
                      (lever_arm, lever_arm_antenna, mounting_angles, mounting_angles_aircraft,
                       gnss_standard_deviation))

struct Trajectory {
    Imu imu_onboard;
    std::optional<Imu> imu_external;
    std::vector<Camera> cameras;
    std::string stabilized_mount;
};
BOOST_DESCRIBE_STRUCT(Trajectory, (), (imu_onboard, imu_external, cameras, stabilized_mount))

struct Range {
    double minimum = 0, maximum = 0;
    std::string unit;
};
BOOST_DESCRIBE_STRUCT(Range, (), (minimum, maximum, unit))

struct FieldOfView {
    Range view, filter;
    bool is_default = false;
};
BOOST_DESCRIBE_STRUCT(FieldOfView, (), (view, filter, is_default))

struct Calibration {
    std::string name, content;
};
BOOST_DESCRIBE_STRUCT(Calibration, (), (name, content))

struct Georeferencing {
    std::optional<Angles> boresight_angles;
    std::optional<Calibration> calibration_document;
    std::vector<FieldOfView> field_of_views;
};
BOOST_DESCRIBE_STRUCT(Georeferencing, (), (boresight_angles, calibration_document, field_of_views))

struct Boresight {
    Range field_of_view;
    Angles initial_boresight_angles;
    Number number_of_criteria;
    Xyz lever_arm_accuracy, position_accuracy;
    Angles attitude_accuracy;
    Xyz lidar_accuracy;
};
BOOST_DESCRIBE_STRUCT(Boresight, (),
                      (field_of_view, initial_boresight_angles, number_of_criteria, lever_arm_accuracy,
                       position_accuracy, attitude_accuracy, lidar_accuracy))

struct Rejection {
    Number average_point_cloud_density, outlying_score_threshold, cop_weighting;
};
BOOST_DESCRIBE_STRUCT(Rejection, (), (average_point_cloud_density, outlying_score_threshold, cop_weighting))

struct Enhancement {
    Number average_point_cloud_thickness, suppression_threshold, sharpener, minimum_neighbors_to_be_processed,
        maximum_neighbors_to_consider, minimum_neighbors_to_be_isolated;
    Rejection morphological_rejection;
};
BOOST_DESCRIBE_STRUCT(Enhancement, (),
                      (average_point_cloud_thickness, suppression_threshold, sharpener,
                       minimum_neighbors_to_be_processed, maximum_neighbors_to_consider,
                       minimum_neighbors_to_be_isolated, morphological_rejection))

struct Preview {
    Number downsampling_rate;
};
BOOST_DESCRIBE_STRUCT(Preview, (), (downsampling_rate))

struct Sampling {
    Number read_fraction_denominator, normal_sample_size, uniform_sampling_radius,
        normal_sampling_slope_interval, random_sampling_factor;
};
BOOST_DESCRIBE_STRUCT(Sampling, (),
                      (read_fraction_denominator, normal_sample_size, uniform_sampling_radius,
                       normal_sampling_slope_interval, random_sampling_factor))

struct StripRejection {
    Number maximum_angle, std_estimation_factor, z_distance_score;
};
BOOST_DESCRIBE_STRUCT(StripRejection, (), (maximum_angle, std_estimation_factor, z_distance_score))

struct Preprocessing {
    Number neighbors_search_radius, minimum_neighbors_to_be_processed, maximum_roughness,
        intersection_distance, intersection_minimum_points, intersection_maximum_vertical_distance,
        line_minimum_points, reference_line_minimum_points;
};
BOOST_DESCRIBE_STRUCT(Preprocessing, (),
                      (neighbors_search_radius, minimum_neighbors_to_be_processed, maximum_roughness,
                       intersection_distance, intersection_minimum_points,
                       intersection_maximum_vertical_distance, line_minimum_points,
                       reference_line_minimum_points))

struct Minimization {
    Number ls_angle_epsilon, ls_distance_epsilon, ls_probability, maximum_inner_loop_count,
        maximum_outer_loop_count, counter_chi2_loop_maximum;
};
BOOST_DESCRIBE_STRUCT(Minimization, (),
                      (ls_angle_epsilon, ls_distance_epsilon, ls_probability, maximum_inner_loop_count,
                       maximum_outer_loop_count, counter_chi2_loop_maximum))

struct Strip {
    Number temporal_time_frame;
    Sampling sampling;
    StripRejection rejection;
    Preprocessing preprocessing;
    Minimization minimization;
};
BOOST_DESCRIBE_STRUCT(Strip, (), (temporal_time_frame, sampling, rejection, preprocessing, minimization))

struct Densification {
    Number maximum_angular_deviation, maximum_orthogonal_distance;
};
BOOST_DESCRIBE_STRUCT(Densification, (), (maximum_angular_deviation, maximum_orthogonal_distance))

struct Segmentation {
    Number maximum_normal_deviation, maximum_orthogonal_distance, minimum_points_per_region;
};
BOOST_DESCRIBE_STRUCT(Segmentation, (),
                      (maximum_normal_deviation, maximum_orthogonal_distance, minimum_points_per_region))

struct Interior {
    Densification densification;
    Segmentation segmentation;
};
BOOST_DESCRIBE_STRUCT(Interior, (), (densification, segmentation))

struct Hull {
    Number convex_band_width;
    Segmentation segmentation;
};
BOOST_DESCRIBE_STRUCT(Hull, (), (convex_band_width, segmentation))

struct Dsm {
    Number grid_size, tiles_size, tiles_overlap;
};
BOOST_DESCRIBE_STRUCT(Dsm, (), (grid_size, tiles_size, tiles_overlap))

struct Ground {
    Number maximum_building_size, maximum_terrain_slope, number_of_neighbors;
    Interior interior_processing;
    Hull hull_processing;
    std::vector<std::string> terrain_typology;
    Dsm dsm;
};
BOOST_DESCRIBE_STRUCT(Ground, (),
                      (maximum_building_size, maximum_terrain_slope, number_of_neighbors, interior_processing,
                       hull_processing, terrain_typology, dsm))

struct Distortion {
    Number radial_1, radial_2, radial_3, tangential_1, tangential_2;
};
BOOST_DESCRIBE_STRUCT(Distortion, (), (radial_1, radial_2, radial_3, tangential_1, tangential_2))

struct Images {
    Number width, height, focal_length, principal_point_x, principal_point_y;
};
BOOST_DESCRIBE_STRUCT(Images, (), (width, height, focal_length, principal_point_x, principal_point_y))

struct Colorization {
    Number flight_height;
    std::vector<std::string> terrain_typology;
    Number image_read_sampling_factor, image_resizing_factor, point_cloud_sampling_read_factor,
        sampling_resolution, octree_resolution, octree_minimum_points_per_block, occlusion_factor,
        occlusion_number_of_neighbors, vertical_angle_threshold, number_images_used_per_point;
    Distortion distortion;
    Images images;
};
BOOST_DESCRIBE_STRUCT(Colorization, (),
                      (flight_height, terrain_typology, image_read_sampling_factor, image_resizing_factor,
                       point_cloud_sampling_read_factor, sampling_resolution, octree_resolution,
                       octree_minimum_points_per_block, occlusion_factor, occlusion_number_of_neighbors,
                       vertical_angle_threshold, number_images_used_per_point, distortion, images))

struct Lidar {
    std::string file_extension;
    Number imu_latency;
    std::string alignment;
    Xyz lever_arm;
    Georeferencing georeferencing;
    Boresight boresight_calibration;
    Enhancement precision_enhancement;
    Preview lidar_coverage_preview;
    Strip strip_adjustment;
    Ground ground_classification;
    Colorization point_cloud_direct_colorization;
};
BOOST_DESCRIBE_STRUCT(Lidar, (),
                      (file_extension, imu_latency, alignment, lever_arm, georeferencing,
                       boresight_calibration, precision_enhancement, lidar_coverage_preview, strip_adjustment,
                       ground_classification, point_cloud_direct_colorization))

struct Profile {
    unsigned int id = 0;
    std::string name, product;
    std::optional<std::string> serial_number;
    std::string creation_time, last_modification_time;
    std::optional<Lidar> lidar;
    Trajectory trajectory;
};
BOOST_DESCRIBE_STRUCT(Profile, (),
                      (id, name, product, serial_number, creation_time, last_modification_time, lidar,
                       trajectory))

template <typename T>
concept Described = boost::describe::has_describe_members<T>::value;

template <typename T>
constexpr bool IS_OPTIONAL = false;
template <typename T>
constexpr bool IS_OPTIONAL<std::optional<T>> = true;

/// Calls `visit(key, member)` for each member of the structure, in the document's order.
template <typename Structure, typename Visit>
void forEachMember(Structure& structure, const Visit& visit) {
    using Members =
        boost::describe::describe_members<std::remove_const_t<Structure>, boost::describe::mod_public>;
    boost::mp11::mp_for_each<Members>([&](auto member) { visit(member.name, structure.*member.pointer); });
}

} // namespace norel::Benchmark::Plain

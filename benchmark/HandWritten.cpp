#include "HandWritten.h"

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

namespace norel::Benchmark {
namespace {

using Json = nlohmann::ordered_json;

struct Number {
    double value = 0, defaultValue = 0, minimum = 0, maximum = 0, precision = 1;
    std::optional<std::map<std::string, double>> presets;
    std::string unit;
    bool hasDefault = false, hasRange = false, hasUnit = false;
};

template <typename T>
void readJson(const Json& json, T& target);
template <typename T>
Json writeJson(const T& source);

void readJson(const Json& json, Number& number) {
    json.at("value").get_to(number.value);
    if ((number.hasDefault = json.contains("defaultValue")))
        json.at("defaultValue").get_to(number.defaultValue);
    if (json.contains("presets"))
        number.presets = json.at("presets").get<std::map<std::string, double>>();
    if ((number.hasRange = json.contains("minimum"))) {
        json.at("minimum").get_to(number.minimum);
        json.at("maximum").get_to(number.maximum);
        number.precision = json.value("precision", 1.0);
    }
    if ((number.hasUnit = json.contains("unit")))
        json.at("unit").get_to(number.unit);
}

Json writeJson(const Number& number) {
    Json json;
    if (number.hasDefault)
        json["defaultValue"] = number.defaultValue;
    if (number.presets)
        json["presets"] = *number.presets;
    if (number.hasRange) {
        json["minimum"] = number.minimum;
        json["maximum"] = number.maximum;
        if (number.precision != 1)
            json["precision"] = number.precision;
    }
    json["value"] = number.value;
    if (number.hasUnit)
        json["unit"] = number.unit;
    return json;
}

// Each structure visits its members with their keys; the reader and the writer are visitors.

struct Reader {
    const Json& json;

    template <typename T>
    void operator()(const char* key, T& member) const {
        if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, std::vector<std::string>> ||
                      std::is_arithmetic_v<T>)
            json.at(key).get_to(member);
        else
            readJson(json.at(key), member);
    }
    template <typename T>
    void operator()(const char* key, std::optional<T>& member) const {
        if (json.contains(key) && !json.at(key).is_null())
            (*this)(key, member.emplace());
    }
    template <typename T>
    void operator()(const char* key, std::vector<T>& member) const {
        for (const Json& element : json.at(key))
            readJson(element, member.emplace_back());
    }
    void operator()(const char* key, std::vector<std::string>& member) const { json.at(key).get_to(member); }
};

struct Writer {
    Json& json;

    template <typename T>
    void operator()(const char* key, const T& member) const {
        if constexpr (std::is_same_v<T, std::string> || std::is_arithmetic_v<T>)
            json[key] = member;
        else
            json[key] = writeJson(member);
    }
    template <typename T>
    void operator()(const char* key, const std::optional<T>& member) const {
        if (member)
            (*this)(key, *member);
    }
    template <typename T>
    void operator()(const char* key, const std::vector<T>& member) const {
        json[key] = Json::array();
        for (const T& element : member)
            json[key].push_back(writeJson(element));
    }
    void operator()(const char* key, const std::vector<std::string>& member) const { json[key] = member; }
};

template <typename T>
void readJson(const Json& json, T& target) {
    T::visit(target, Reader{json});
}

template <typename T>
Json writeJson(const T& source) {
    Json json;
    T::visit(source, Writer{json});
    return json;
}

struct Xyz {
    Number x, y, z;
    static void visit(auto& s, auto v) { v("x", s.x), v("y", s.y), v("z", s.z); }
};

struct Angles {
    Number roll, pitch, yaw;
    static void visit(auto& s, auto v) { v("roll", s.roll), v("pitch", s.pitch), v("yaw", s.yaw); }
};

struct CameraAngles {
    Number tx, ty, tz;
    static void visit(auto& s, auto v) { v("Tx", s.tx), v("Ty", s.ty), v("Tz", s.tz); }
};

struct Camera {
    std::string orientation;
    Xyz leverArm;
    CameraAngles boresight;
    Number kappa, shift;
    static void visit(auto& s, auto v) {
        v("orientation", s.orientation), v("lever_arm", s.leverArm), v("boresight_angles", s.boresight);
        v("kappa_cardinal", s.kappa), v("event_time_shift", s.shift);
    }
};

struct Imu {
    Xyz leverArm, antenna, mounting, aircraft;
    std::string gnss;
    static void visit(auto& s, auto v) {
        v("lever_arm", s.leverArm), v("lever_arm_antenna", s.antenna), v("mounting_angles", s.mounting);
        v("mounting_angles_aircraft", s.aircraft), v("gnss_standard_deviation", s.gnss);
    }
};

struct Trajectory {
    Imu onboard;
    std::optional<Imu> external;
    std::vector<Camera> cameras;
    std::string mount;
    static void visit(auto& s, auto v) {
        v("imu_onboard", s.onboard), v("imu_external", s.external), v("cameras", s.cameras);
        v("stabilized_mount", s.mount);
    }
};

struct Range {
    double minimum = 0, maximum = 0;
    std::string unit;
    static void visit(auto& s, auto v) {
        v("minimum", s.minimum), v("maximum", s.maximum), v("unit", s.unit);
    }
};

struct FieldOfView {
    Range view, filter;
    bool isDefault = false;
    static void visit(auto& s, auto v) {
        v("view", s.view), v("filter", s.filter), v("is_default", s.isDefault);
    }
};

struct Calibration {
    std::string name, content;
    static void visit(auto& s, auto v) { v("name", s.name), v("content", s.content); }
};

struct Georeferencing {
    std::optional<Angles> angles;
    std::optional<Calibration> calibration;
    std::vector<FieldOfView> views;
    static void visit(auto& s, auto v) {
        v("boresight_angles", s.angles), v("calibration_document", s.calibration),
            v("field_of_views", s.views);
    }
};

struct Boresight {
    Range view;
    Angles initial;
    Number criteria;
    Xyz leverArm, position;
    Angles attitude;
    Xyz lidar;
    static void visit(auto& s, auto v) {
        v("field_of_view", s.view), v("initial_boresight_angles", s.initial),
            v("number_of_criteria", s.criteria);
        v("lever_arm_accuracy", s.leverArm), v("position_accuracy", s.position);
        v("attitude_accuracy", s.attitude), v("lidar_accuracy", s.lidar);
    }
};

struct Rejection {
    Number density, score, weighting;
    static void visit(auto& s, auto v) {
        v("average_point_cloud_density", s.density), v("outlying_score_threshold", s.score);
        v("cop_weighting", s.weighting);
    }
};

struct Enhancement {
    Number thickness, suppression, sharpener, minimum, maximum, isolated;
    Rejection rejection;
    static void visit(auto& s, auto v) {
        v("average_point_cloud_thickness", s.thickness), v("suppression_threshold", s.suppression);
        v("sharpener", s.sharpener), v("minimum_neighbors_to_be_processed", s.minimum);
        v("maximum_neighbors_to_consider", s.maximum), v("minimum_neighbors_to_be_isolated", s.isolated);
        v("morphological_rejection", s.rejection);
    }
};

struct Preview {
    Number rate;
    static void visit(auto& s, auto v) { v("downsampling_rate", s.rate); }
};

struct Sampling {
    Number read, normal, uniform, slope, random;
    static void visit(auto& s, auto v) {
        v("read_fraction_denominator", s.read), v("normal_sample_size", s.normal);
        v("uniform_sampling_radius", s.uniform), v("normal_sampling_slope_interval", s.slope);
        v("random_sampling_factor", s.random);
    }
};

struct StripRejection {
    Number angle, factor, score;
    static void visit(auto& s, auto v) {
        v("maximum_angle", s.angle), v("std_estimation_factor", s.factor), v("z_distance_score", s.score);
    }
};

struct Preprocessing {
    Number radius, neighbors, roughness, distance, points, vertical, line, reference;
    static void visit(auto& s, auto v) {
        v("neighbors_search_radius", s.radius), v("minimum_neighbors_to_be_processed", s.neighbors);
        v("maximum_roughness", s.roughness), v("intersection_distance", s.distance);
        v("intersection_minimum_points", s.points), v("intersection_maximum_vertical_distance", s.vertical);
        v("line_minimum_points", s.line), v("reference_line_minimum_points", s.reference);
    }
};

struct Minimization {
    Number angle, distance, probability, inner, outer, counter;
    static void visit(auto& s, auto v) {
        v("ls_angle_epsilon", s.angle), v("ls_distance_epsilon", s.distance),
            v("ls_probability", s.probability);
        v("maximum_inner_loop_count", s.inner), v("maximum_outer_loop_count", s.outer);
        v("counter_chi2_loop_maximum", s.counter);
    }
};

struct Strip {
    Number frame;
    Sampling sampling;
    StripRejection rejection;
    Preprocessing preprocessing;
    Minimization minimization;
    static void visit(auto& s, auto v) {
        v("temporal_time_frame", s.frame), v("sampling", s.sampling), v("rejection", s.rejection);
        v("preprocessing", s.preprocessing), v("minimization", s.minimization);
    }
};

struct Densification {
    Number deviation, distance;
    static void visit(auto& s, auto v) {
        v("maximum_angular_deviation", s.deviation), v("maximum_orthogonal_distance", s.distance);
    }
};

struct Segmentation {
    Number deviation, distance, points;
    static void visit(auto& s, auto v) {
        v("maximum_normal_deviation", s.deviation), v("maximum_orthogonal_distance", s.distance);
        v("minimum_points_per_region", s.points);
    }
};

struct Interior {
    Densification densification;
    Segmentation segmentation;
    static void visit(auto& s, auto v) {
        v("densification", s.densification), v("segmentation", s.segmentation);
    }
};

struct Hull {
    Number width;
    Segmentation segmentation;
    static void visit(auto& s, auto v) { v("convex_band_width", s.width), v("segmentation", s.segmentation); }
};

struct Dsm {
    Number grid, size, overlap;
    static void visit(auto& s, auto v) {
        v("grid_size", s.grid), v("tiles_size", s.size), v("tiles_overlap", s.overlap);
    }
};

struct Ground {
    Number building, slope, neighbors;
    Interior interior;
    Hull hull;
    std::vector<std::string> typology;
    Dsm dsm;
    static void visit(auto& s, auto v) {
        v("maximum_building_size", s.building), v("maximum_terrain_slope", s.slope);
        v("number_of_neighbors", s.neighbors), v("interior_processing", s.interior);
        v("hull_processing", s.hull), v("terrain_typology", s.typology), v("dsm", s.dsm);
    }
};

struct Distortion {
    Number radial1, radial2, radial3, tangential1, tangential2;
    static void visit(auto& s, auto v) {
        v("radial_1", s.radial1), v("radial_2", s.radial2), v("radial_3", s.radial3);
        v("tangential_1", s.tangential1), v("tangential_2", s.tangential2);
    }
};

struct Images {
    Number width, height, focal, x, y;
    static void visit(auto& s, auto v) {
        v("width", s.width), v("height", s.height), v("focal_length", s.focal);
        v("principal_point_x", s.x), v("principal_point_y", s.y);
    }
};

struct Colorization {
    Number height;
    std::vector<std::string> typology;
    Number read, resizing, cloud, resolution, octree, block, occlusion, neighbors, vertical, images;
    Distortion distortion;
    Images image;
    static void visit(auto& s, auto v) {
        v("flight_height", s.height), v("terrain_typology", s.typology),
            v("image_read_sampling_factor", s.read);
        v("image_resizing_factor", s.resizing), v("point_cloud_sampling_read_factor", s.cloud);
        v("sampling_resolution", s.resolution), v("octree_resolution", s.octree);
        v("octree_minimum_points_per_block", s.block), v("occlusion_factor", s.occlusion);
        v("occlusion_number_of_neighbors", s.neighbors), v("vertical_angle_threshold", s.vertical);
        v("number_images_used_per_point", s.images), v("distortion", s.distortion), v("images", s.image);
    }
};

struct Lidar {
    std::string extension;
    Number latency;
    std::string alignment;
    Xyz leverArm;
    Georeferencing georeferencing;
    Boresight boresight;
    Enhancement enhancement;
    Preview preview;
    Strip strip;
    Ground ground;
    Colorization colorization;
    static void visit(auto& s, auto v) {
        v("file_extension", s.extension), v("imu_latency", s.latency), v("alignment", s.alignment);
        v("lever_arm", s.leverArm), v("georeferencing", s.georeferencing);
        v("boresight_calibration", s.boresight), v("precision_enhancement", s.enhancement);
        v("lidar_coverage_preview", s.preview), v("strip_adjustment", s.strip);
        v("ground_classification", s.ground), v("point_cloud_direct_colorization", s.colorization);
    }
};

struct Profile {
    unsigned int id = 0;
    std::string name, product;
    std::optional<std::string> serialNumber;
    std::string created, modified;
    std::optional<Lidar> lidar;
    Trajectory trajectory;
    static void visit(auto& s, auto v) {
        v("id", s.id), v("name", s.name), v("product", s.product), v("serial_number", s.serialNumber);
        v("creation_time", s.created), v("last_modification_time", s.modified), v("lidar", s.lidar);
        v("trajectory", s.trajectory);
    }
};

} // namespace

struct HandWrittenProfiles::Profiles {
    std::vector<Profile> list;
};

HandWrittenProfiles::HandWrittenProfiles(const std::string& document)
    : profiles(std::make_unique<Profiles>()) {
    for (const Json& element : Json::parse(document))
        readJson(element, profiles->list.emplace_back());
}

HandWrittenProfiles::~HandWrittenProfiles() = default;

std::string HandWrittenProfiles::toDocument() const {
    Json json = Json::array();
    for (const Profile& profile : profiles->list)
        json.push_back(writeJson(profile));
    return json.dump(4);
}

} // namespace norel::Benchmark

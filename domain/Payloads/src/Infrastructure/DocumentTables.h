#pragma once

#include "AllowedValues.h"
#include "DocumentKeys.h"
#include "DocumentRows.h"
#include "ProcessingTables.h"

/// The format of the profile-list document, with one table per object and one row per key: parameters,
/// profiles, sensors and georeferencing. The processing settings are in ProcessingTables.h.
namespace norel::Desktop::Domain::Payloads {

template <typename T>
struct DocumentTable<Parameter<T>> : DocumentTableOf<Parameter<T>> {
    using Fields = typename Parameter<T>::Builder;

    static const auto& rows() {
        static const std::tuple table{
            required("defaultValue", "The default of the value", &Fields::defaultValue, &Fields::defaultValue)
                .unless(VALUE_ONLY),
            defaulted("presets", "Named values to choose from", &Fields::presets, &Fields::presets)
                .unless(VALUE_ONLY),
            required("minimum", "The smallest allowed value, default and preset", &Fields::minimum,
                     &Fields::minimum)
                .unless(VALUE_ONLY | NO_CONSTRAINTS),
            required("maximum", "The largest allowed value, default and preset", &Fields::maximum,
                     &Fields::maximum)
                .unless(VALUE_ONLY | NO_CONSTRAINTS),
            defaulted("precision", "The resolution of the value, a power of ten; 1 when absent",
                      &Fields::precision, &Fields::precision)
                .unless(VALUE_ONLY | NO_CONSTRAINTS),
            required(Keys::VALUE, "The current value, from minimum to maximum", &Fields::value,
                     &Fields::value),
            required("unit", "The unit of all numbers but the precision; empty for none", &Fields::unit,
                     &Fields::unit)
                .allowing({.choices = AllowedValues::UNITS})
                .unless(NO_UNIT)};
        return table;
    }
};

/// A Parameter's value is read first and its unit last.
template <typename T>
struct ReadingOrder<Parameter<T>> {
    using Positions = std::index_sequence<5, 0, 1, 2, 3, 4, 6>;
};

template <>
struct DocumentTable<Profile> : DocumentTableOf<Profile> {
    static const auto& rows() {
        static const std::tuple table{
            required("id", "Identifies the profile within its list; 4294967295 requests a new id",
                     &Fields::id, &Builder::id),
            required("name", "The name for display", &Fields::name, &Builder::name)
                .allowing({.isNotEmpty = true}),
            required(Keys::PRODUCT, "The name of the product", &Fields::product, &Builder::product)
                .allowing({.isNotEmpty = true}),
            optional("serial_number", "The serial number of the payload; may be empty", &Fields::serialNumber,
                     &Builder::serialNumber),
            required("creation_time", "When the profile was created, ISO 8601", &Fields::creationTime,
                     &Builder::creationTime),
            required("last_modification_time", "When the profile was last changed, ISO 8601",
                     &Fields::lastModificationTime, &Builder::lastModificationTime),
            optional(Keys::LIDAR, "The lidar and its processing settings; absent for a product without one",
                     &Fields::lidar, &Builder::lidar),
            required("trajectory", "The IMUs, the cameras and the mount", &Fields::trajectory,
                     &Builder::trajectory)};
        return table;
    }
};

template <>
struct DocumentTable<Trajectory> : DocumentTableOf<Trajectory> {
    static const auto& rows() {
        static const std::tuple table{
            required("imu_onboard", "The IMU of the payload", &Fields::imuOnboard, &Builder::imuOnboard),
            optional("imu_external", "A second IMU; absent for a payload without one", &Fields::imuExternal,
                     &Builder::imuExternal),
            required("cameras", "The cameras, at most one of each orientation", &Fields::cameras,
                     &Builder::cameras),
            required("stabilized_mount", "Stabilized mount of the sensors", &Fields::stabilizedMount,
                     &Builder::stabilizedMount)
                .allowing({.choices = AllowedValues::STABILIZED_MOUNTS})};
        return table;
    }
};

template <>
struct DocumentTable<Imu> : DocumentTableOf<Imu> {
    static const auto& rows() {
        static const std::tuple table{
            required("lever_arm", "Lever arm of the IMU", &Fields::leverArm, &Builder::leverArm),
            required("lever_arm_antenna", "Lever arm of the GNSS antenna", &Fields::leverArmAntenna,
                     &Builder::leverArmAntenna),
            required("mounting_angles", "How the IMU is mounted", &Fields::mountingAngles,
                     &Builder::mountingAngles),
            required("mounting_angles_aircraft", "How the IMU is mounted, relative to the aircraft",
                     &Fields::mountingAnglesAircraft, &Builder::mountingAnglesAircraft),
            required("gnss_standard_deviation", "Standard deviation of the GNSS positions",
                     &Fields::gnssStandardDeviation, &Builder::gnssStandardDeviation)
                .allowing({.choices = AllowedValues::GNSS_STANDARD_DEVIATIONS})};
        return table;
    }
};

template <>
struct DocumentTable<Camera> : DocumentTableOf<Camera> {
    static const auto& rows() {
        static const std::tuple table{
            required("orientation", "Viewing direction of the camera", &Fields::orientation,
                     &Builder::orientation)
                .allowing({.choices = AllowedValues::ORIENTATIONS}),
            required("lever_arm", "Lever arm of the camera", &Fields::leverArm, &Builder::leverArm),
            required("boresight_angles", "Boresight angles of the camera", &Fields::boresightAngles,
                     &Builder::boresightAngles),
            required("kappa_cardinal", "Kappa angle of the camera", &Fields::kappaCardinal,
                     &Builder::kappaCardinal, NO_CONSTRAINTS),
            required("event_time_shift", "Time shift of the camera events", &Fields::eventTimeShift,
                     &Builder::eventTimeShift)};
        return table;
    }
};

template <>
struct DocumentTable<Lidar> : DocumentTableOf<Lidar> {
    static const auto& rows() {
        static const std::tuple table{
            required("file_extension",
                     "Extension of the data files, without a dot, such as rxp; may be empty",
                     &Fields::fileExtension, &Builder::fileExtension),
            required("imu_latency", "Latency of the IMU", &Fields::imuLatency, &Builder::imuLatency),
            required("alignment", "Signed permutation of the axes, such as z y -x", &Fields::alignment,
                     &Builder::alignment)
                .allowing({.form = AllowedValues::ALIGNMENT_FORM}),
            required("lever_arm", "Lever arm of the lidar", &Fields::leverArm, &Builder::leverArm),
            required(
                "georeferencing",
                "Fields of view and boresight calibration; boresight angles, a calibration document or both",
                &Fields::georeferencing, &Builder::georeferencing),
            required("boresight_calibration", "Settings of the boresight calibration",
                     &Fields::boresightCalibration, &Builder::boresightCalibration),
            required(Keys::PRECISION_ENHANCEMENT, "Settings of the precision enhancement of the point cloud",
                     &Fields::precisionEnhancement, &Builder::precisionEnhancement),
            required("lidar_coverage_preview", "Settings of the coverage preview",
                     &Fields::lidarCoveragePreview, &Builder::lidarCoveragePreview),
            required(Keys::STRIP_ADJUSTMENT, "Settings of the strip adjustment", &Fields::stripAdjustment,
                     &Builder::stripAdjustment),
            required(Keys::GROUND_CLASSIFICATION,
                     "Settings of the ground classification and the digital surface model",
                     &Fields::groundClassification, &Builder::groundClassification),
            required(Keys::POINT_CLOUD_DIRECT_COLORIZATION,
                     "Settings of the direct colorization from camera images",
                     &Fields::pointCloudDirectColorization, &Builder::pointCloudDirectColorization)};
        return table;
    }
};

template <>
struct DocumentTable<Georeferencing> : DocumentTableOf<Georeferencing> {
    static const auto& rows() {
        static const std::tuple table{
            optional("boresight_angles",
                     "Boresight angles of the lidar; may be absent when there is a calibration document",
                     &Fields::boresightAngles, &Builder::boresightAngles),
            optional("calibration_document",
                     "Calibration of the lidar as a text; may be absent when there are boresight angles",
                     &Fields::calibrationDocument, &Builder::calibrationDocument),
            required(
                "field_of_views",
                "The fields of view to choose from: one of them is the default, no two have the same view",
                &Fields::fieldOfViews, &Builder::fieldOfViews)
                .allowing({.isNotEmpty = true})};
        return table;
    }
};

template <>
struct DocumentTable<CalibrationDocument> : DocumentTableOf<CalibrationDocument> {
    static const auto& rows() {
        static const std::tuple table{
            required("name", "Name of the document; may be empty", &Fields::name, &Builder::name),
            required("content", "The whole text; may be empty", &Fields::content, &Builder::content)};
        return table;
    }
};

template <>
struct DocumentTable<FieldOfView> : DocumentTableOf<FieldOfView> {
    static const auto& rows() {
        static const std::tuple table{
            required("view", "The range that is scanned", &Fields::view, &Builder::view),
            required("filter", "The range whose points are kept", &Fields::filter, &Builder::filter),
            required("is_default", "Whether this is the default field of view", &Fields::isDefault,
                     &Builder::isDefault)};
        return table;
    }
};

template <>
struct DocumentTable<FieldOfViewRange> : DocumentTableOf<FieldOfViewRange> {
    static const auto& rows() {
        static const std::tuple table{
            required("minimum", "Lower limit of the range, inclusive", &Fields::minimum, &Builder::minimum),
            required("maximum", "Upper limit of the range, inclusive", &Fields::maximum, &Builder::maximum),
            required("unit", "Unit of both limits", &Fields::unit, &Builder::unit)
                .allowing({.choices = AllowedValues::FIELD_OF_VIEW_UNITS})};
        return table;
    }
};

template <>
struct DocumentTable<BoresightCalibration> : DocumentTableOf<BoresightCalibration> {
    static const auto& rows() {
        static const std::tuple table{
            required("field_of_view", "The field of view to calibrate", &Fields::fieldOfView,
                     &Builder::fieldOfView),
            required("initial_boresight_angles", "The angles to start from", &Fields::initialBoresightAngles,
                     &Builder::initialBoresightAngles),
            required("number_of_criteria", "Number of criteria", &Fields::numberOfCriteria,
                     &Builder::numberOfCriteria, NO_UNIT),
            required("lever_arm_accuracy", "Accuracy of the lever arm", &Fields::leverArmAccuracy,
                     &Builder::leverArmAccuracy, VALUE_ONLY),
            required("position_accuracy", "Accuracy of the position", &Fields::positionAccuracy,
                     &Builder::positionAccuracy, VALUE_ONLY),
            required("attitude_accuracy", "Accuracy of the attitude", &Fields::attitudeAccuracy,
                     &Builder::attitudeAccuracy, VALUE_ONLY),
            required("lidar_accuracy", "Accuracy of the lidar", &Fields::lidarAccuracy,
                     &Builder::lidarAccuracy, VALUE_ONLY)};
        return table;
    }
};

template <>
struct DocumentTable<Vector3> : DocumentTableOf<Vector3> {
    static const auto& rows() {
        static const std::tuple table{
            required("x", "Component along x", &Fields::x, &Builder::x).passingOptions(),
            required("y", "Component along y", &Fields::y, &Builder::y).passingOptions(),
            required("z", "Component along z", &Fields::z, &Builder::z).passingOptions()};
        return table;
    }
};

template <>
struct DocumentTable<Angles3> : DocumentTableOf<Angles3> {
    static const auto& rows() {
        static const std::tuple table{
            required("roll", "Roll", &Fields::roll, &Builder::roll).passingOptions(),
            required("pitch", "Pitch", &Fields::pitch, &Builder::pitch).passingOptions(),
            required("yaw", "Yaw", &Fields::yaw, &Builder::yaw).passingOptions()};
        return table;
    }
};

template <>
struct DocumentTable<CameraAngles3> : DocumentTableOf<CameraAngles3> {
    static const auto& rows() {
        static const std::tuple table{required("Tx", "Angle about x", &Fields::tx, &Builder::tx),
                                      required("Ty", "Angle about y", &Fields::ty, &Builder::ty),
                                      required("Tz", "Angle about z", &Fields::tz, &Builder::tz)};
        return table;
    }
};

template <>
struct DocumentTable<MountingAngles3> : DocumentTableOf<MountingAngles3> {
    static const auto& rows() {
        static const std::tuple table{
            required("x", "Angle about x, whole degrees", &Fields::x, &Builder::x, NO_CONSTRAINTS),
            required("y", "Angle about y, whole degrees", &Fields::y, &Builder::y, NO_CONSTRAINTS),
            required("z", "Angle about z, whole degrees", &Fields::z, &Builder::z, NO_CONSTRAINTS)};
        return table;
    }
};

} // namespace norel::Desktop::Domain::Payloads

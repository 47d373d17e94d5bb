#pragma once

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
            required("defaultValue", &Fields::defaultValue, &Fields::defaultValue).unless(VALUE_ONLY),
            defaulted("presets", &Fields::presets, &Fields::presets).unless(VALUE_ONLY),
            required("minimum", &Fields::minimum, &Fields::minimum).unless(VALUE_ONLY | NO_CONSTRAINTS),
            required("maximum", &Fields::maximum, &Fields::maximum).unless(VALUE_ONLY | NO_CONSTRAINTS),
            defaulted("precision", &Fields::precision, &Fields::precision)
                .unless(VALUE_ONLY | NO_CONSTRAINTS),
            required("value", &Fields::value, &Fields::value),
            required("unit", &Fields::unit, &Fields::unit).unless(NO_UNIT)};
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
            required("id", &Fields::id, &Builder::id),
            required("name", &Fields::name, &Builder::name),
            required(Keys::PRODUCT, &Fields::product, &Builder::product),
            optional("serial_number", &Fields::serialNumber, &Builder::serialNumber),
            required("creation_time", &Fields::creationTime, &Builder::creationTime),
            required("last_modification_time", &Fields::lastModificationTime, &Builder::lastModificationTime),
            optional(Keys::LIDAR, &Fields::lidar, &Builder::lidar),
            required("trajectory", &Fields::trajectory, &Builder::trajectory)};
        return table;
    }
};

template <>
struct DocumentTable<Trajectory> : DocumentTableOf<Trajectory> {
    static const auto& rows() {
        static const std::tuple table{
            required("imu_onboard", &Fields::imuOnboard, &Builder::imuOnboard),
            optional("imu_external", &Fields::imuExternal, &Builder::imuExternal),
            required("cameras", &Fields::cameras, &Builder::cameras),
            required("stabilized_mount", &Fields::stabilizedMount, &Builder::stabilizedMount)};
        return table;
    }
};

template <>
struct DocumentTable<Imu> : DocumentTableOf<Imu> {
    static const auto& rows() {
        static const std::tuple table{
            required("lever_arm", &Fields::leverArm, &Builder::leverArm),
            required("lever_arm_antenna", &Fields::leverArmAntenna, &Builder::leverArmAntenna),
            required("mounting_angles", &Fields::mountingAngles, &Builder::mountingAngles),
            required("mounting_angles_aircraft", &Fields::mountingAnglesAircraft,
                     &Builder::mountingAnglesAircraft),
            required("gnss_standard_deviation", &Fields::gnssStandardDeviation,
                     &Builder::gnssStandardDeviation)};
        return table;
    }
};

template <>
struct DocumentTable<Camera> : DocumentTableOf<Camera> {
    static const auto& rows() {
        static const std::tuple table{
            required("orientation", &Fields::orientation, &Builder::orientation),
            required("lever_arm", &Fields::leverArm, &Builder::leverArm),
            required("boresight_angles", &Fields::boresightAngles, &Builder::boresightAngles),
            required("kappa_cardinal", &Fields::kappaCardinal, &Builder::kappaCardinal, NO_CONSTRAINTS),
            required("event_time_shift", &Fields::eventTimeShift, &Builder::eventTimeShift)};
        return table;
    }
};

template <>
struct DocumentTable<Lidar> : DocumentTableOf<Lidar> {
    static const auto& rows() {
        static const std::tuple table{
            required("file_extension", &Fields::fileExtension, &Builder::fileExtension),
            required("imu_latency", &Fields::imuLatency, &Builder::imuLatency),
            required("alignment", &Fields::alignment, &Builder::alignment),
            required("lever_arm", &Fields::leverArm, &Builder::leverArm),
            required("georeferencing", &Fields::georeferencing, &Builder::georeferencing),
            required("boresight_calibration", &Fields::boresightCalibration, &Builder::boresightCalibration),
            required(Keys::PRECISION_ENHANCEMENT, &Fields::precisionEnhancement,
                     &Builder::precisionEnhancement),
            required("lidar_coverage_preview", &Fields::lidarCoveragePreview, &Builder::lidarCoveragePreview),
            required(Keys::STRIP_ADJUSTMENT, &Fields::stripAdjustment, &Builder::stripAdjustment),
            required(Keys::GROUND_CLASSIFICATION, &Fields::groundClassification,
                     &Builder::groundClassification),
            required(Keys::POINT_CLOUD_DIRECT_COLORIZATION, &Fields::pointCloudDirectColorization,
                     &Builder::pointCloudDirectColorization)};
        return table;
    }
};

template <>
struct DocumentTable<Georeferencing> : DocumentTableOf<Georeferencing> {
    static const auto& rows() {
        static const std::tuple table{
            optional("boresight_angles", &Fields::boresightAngles, &Builder::boresightAngles),
            optional("calibration_document", &Fields::calibrationDocument, &Builder::calibrationDocument),
            required("field_of_views", &Fields::fieldOfViews, &Builder::fieldOfViews)};
        return table;
    }
};

template <>
struct DocumentTable<CalibrationDocument> : DocumentTableOf<CalibrationDocument> {
    static const auto& rows() {
        static const std::tuple table{required("name", &Fields::name, &Builder::name),
                                      required("content", &Fields::content, &Builder::content)};
        return table;
    }
};

template <>
struct DocumentTable<FieldOfView> : DocumentTableOf<FieldOfView> {
    static const auto& rows() {
        static const std::tuple table{required("view", &Fields::view, &Builder::view),
                                      required("filter", &Fields::filter, &Builder::filter),
                                      required("is_default", &Fields::isDefault, &Builder::isDefault)};
        return table;
    }
};

template <>
struct DocumentTable<FieldOfViewRange> : DocumentTableOf<FieldOfViewRange> {
    static const auto& rows() {
        static const std::tuple table{required("minimum", &Fields::minimum, &Builder::minimum),
                                      required("maximum", &Fields::maximum, &Builder::maximum),
                                      required("unit", &Fields::unit, &Builder::unit)};
        return table;
    }
};

template <>
struct DocumentTable<BoresightCalibration> : DocumentTableOf<BoresightCalibration> {
    static const auto& rows() {
        static const std::tuple table{
            required("field_of_view", &Fields::fieldOfView, &Builder::fieldOfView),
            required("initial_boresight_angles", &Fields::initialBoresightAngles,
                     &Builder::initialBoresightAngles),
            required("number_of_criteria", &Fields::numberOfCriteria, &Builder::numberOfCriteria, NO_UNIT),
            required("lever_arm_accuracy", &Fields::leverArmAccuracy, &Builder::leverArmAccuracy, VALUE_ONLY),
            required("position_accuracy", &Fields::positionAccuracy, &Builder::positionAccuracy, VALUE_ONLY),
            required("attitude_accuracy", &Fields::attitudeAccuracy, &Builder::attitudeAccuracy, VALUE_ONLY),
            required("lidar_accuracy", &Fields::lidarAccuracy, &Builder::lidarAccuracy, VALUE_ONLY)};
        return table;
    }
};

template <>
struct DocumentTable<Vector3> : DocumentTableOf<Vector3> {
    static const auto& rows() {
        static const std::tuple table{required("x", &Fields::x, &Builder::x).passingOptions(),
                                      required("y", &Fields::y, &Builder::y).passingOptions(),
                                      required("z", &Fields::z, &Builder::z).passingOptions()};
        return table;
    }
};

template <>
struct DocumentTable<Angles3> : DocumentTableOf<Angles3> {
    static const auto& rows() {
        static const std::tuple table{required("roll", &Fields::roll, &Builder::roll).passingOptions(),
                                      required("pitch", &Fields::pitch, &Builder::pitch).passingOptions(),
                                      required("yaw", &Fields::yaw, &Builder::yaw).passingOptions()};
        return table;
    }
};

template <>
struct DocumentTable<CameraAngles3> : DocumentTableOf<CameraAngles3> {
    static const auto& rows() {
        static const std::tuple table{required("Tx", &Fields::tx, &Builder::tx),
                                      required("Ty", &Fields::ty, &Builder::ty),
                                      required("Tz", &Fields::tz, &Builder::tz)};
        return table;
    }
};

template <>
struct DocumentTable<MountingAngles3> : DocumentTableOf<MountingAngles3> {
    static const auto& rows() {
        static const std::tuple table{required("x", &Fields::x, &Builder::x, NO_CONSTRAINTS),
                                      required("y", &Fields::y, &Builder::y, NO_CONSTRAINTS),
                                      required("z", &Fields::z, &Builder::z, NO_CONSTRAINTS)};
        return table;
    }
};

} // namespace norel::Desktop::Domain::Payloads

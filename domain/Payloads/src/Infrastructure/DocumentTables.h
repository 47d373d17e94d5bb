#pragma once

#include "DocumentKeys.h"
#include "DocumentRows.h"
#include "ProcessingTables.h"

/// The format of the profile-list document, a table an object, a row a key: parameters, profiles, sensors and
/// georeferencing. The processing settings stand in ProcessingTables.h.
namespace norel::Desktop::Domain::Payloads {

template <typename T>
struct DocumentTable<Parameter<T>> : DocumentTableOf<Parameter<T>> {
    using Fields = typename Parameter<T>::Builder;

    static const auto& rows() {
        static const std::tuple table{
            RequiredUnless{VALUE_ONLY, "defaultValue", &Fields::defaultValue, &Fields::defaultValue},
            DefaultedUnless{VALUE_ONLY, "presets", &Fields::presets, &Fields::presets,
                            std::map<std::string, T>{}},
            RequiredUnless{VALUE_ONLY | NO_CONSTRAINTS, "minimum", &Fields::minimum, &Fields::minimum},
            RequiredUnless{VALUE_ONLY | NO_CONSTRAINTS, "maximum", &Fields::maximum, &Fields::maximum},
            DefaultedUnless{VALUE_ONLY | NO_CONSTRAINTS, "precision", &Fields::precision, &Fields::precision,
                            1.0},
            Required{"value", &Fields::value, &Fields::value},
            RequiredUnless{NO_UNIT, "unit", &Fields::unit, &Fields::unit}};
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
            Required{"id", &Fields::id, &Builder::id},
            Required{"name", &Fields::name, &Builder::name},
            Required{Keys::PRODUCT, &Fields::product, &Builder::product},
            WrittenAlways{"serial_number", &Fields::serialNumber, &Builder::serialNumber},
            Required{"creation_time", &Fields::creationTime, &Builder::creationTime},
            Required{"last_modification_time", &Fields::lastModificationTime, &Builder::lastModificationTime},
            Optional{Keys::LIDAR, &Fields::lidar, &Builder::lidar},
            Required{"trajectory", &Fields::trajectory, &Builder::trajectory}};
        return table;
    }
};

template <>
struct DocumentTable<Trajectory> : DocumentTableOf<Trajectory> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"imu_onboard", &Fields::imuOnboard, &Builder::imuOnboard},
            Optional{"imu_external", &Fields::imuExternal, &Builder::imuExternal},
            Required{"cameras", &Fields::cameras, &Builder::cameras},
            Required{"stabilized_mount", &Fields::stabilizedMount, &Builder::stabilizedMount}};
        return table;
    }
};

template <>
struct DocumentTable<Imu> : DocumentTableOf<Imu> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"lever_arm", &Fields::leverArm, &Builder::leverArm},
            Required{"lever_arm_antenna", &Fields::leverArmAntenna, &Builder::leverArmAntenna},
            Required{"mounting_angles", &Fields::mountingAngles, &Builder::mountingAngles},
            Required{"mounting_angles_aircraft", &Fields::mountingAnglesAircraft,
                     &Builder::mountingAnglesAircraft},
            Required{"gnss_standard_deviation", &Fields::gnssStandardDeviation,
                     &Builder::gnssStandardDeviation}};
        return table;
    }
};

template <>
struct DocumentTable<Camera> : DocumentTableOf<Camera> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"orientation", &Fields::orientation, &Builder::orientation},
            Required{"lever_arm", &Fields::leverArm, &Builder::leverArm},
            Required{"boresight_angles", &Fields::boresightAngles, &Builder::boresightAngles},
            Required{"kappa_cardinal", &Fields::kappaCardinal, &Builder::kappaCardinal, NO_CONSTRAINTS},
            Required{"event_time_shift", &Fields::eventTimeShift, &Builder::eventTimeShift}};
        return table;
    }
};

template <>
struct DocumentTable<Lidar> : DocumentTableOf<Lidar> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"file_extension", &Fields::fileExtension, &Builder::fileExtension},
            Required{"imu_latency", &Fields::imuLatency, &Builder::imuLatency},
            Required{"alignment", &Fields::alignment, &Builder::alignment},
            Required{"lever_arm", &Fields::leverArm, &Builder::leverArm},
            Required{"georeferencing", &Fields::georeferencing, &Builder::georeferencing},
            Required{"boresight_calibration", &Fields::boresightCalibration, &Builder::boresightCalibration},
            Required{Keys::PRECISION_ENHANCEMENT, &Fields::precisionEnhancement,
                     &Builder::precisionEnhancement},
            Required{"lidar_coverage_preview", &Fields::lidarCoveragePreview, &Builder::lidarCoveragePreview},
            Required{Keys::STRIP_ADJUSTMENT, &Fields::stripAdjustment, &Builder::stripAdjustment},
            Required{Keys::GROUND_CLASSIFICATION, &Fields::groundClassification,
                     &Builder::groundClassification},
            Required{Keys::POINT_CLOUD_DIRECT_COLORIZATION, &Fields::pointCloudDirectColorization,
                     &Builder::pointCloudDirectColorization}};
        return table;
    }
};

template <>
struct DocumentTable<Georeferencing> : DocumentTableOf<Georeferencing> {
    static const auto& rows() {
        static const std::tuple table{
            Optional{"boresight_angles", &Fields::boresightAngles, &Builder::boresightAngles},
            Optional{"calibration_document", &Fields::calibrationDocument, &Builder::calibrationDocument},
            Required{"field_of_views", &Fields::fieldOfViews, &Builder::fieldOfViews}};
        return table;
    }
};

template <>
struct DocumentTable<CalibrationDocument> : DocumentTableOf<CalibrationDocument> {
    static const auto& rows() {
        static const std::tuple table{Required{"name", &Fields::name, &Builder::name},
                                      Required{"content", &Fields::content, &Builder::content}};
        return table;
    }
};

template <>
struct DocumentTable<FieldOfView> : DocumentTableOf<FieldOfView> {
    static const auto& rows() {
        static const std::tuple table{Required{"view", &Fields::view, &Builder::view},
                                      Required{"filter", &Fields::filter, &Builder::filter},
                                      Required{"is_default", &Fields::isDefault, &Builder::isDefault}};
        return table;
    }
};

template <>
struct DocumentTable<FieldOfViewRange> : DocumentTableOf<FieldOfViewRange> {
    static const auto& rows() {
        static const std::tuple table{Required{"minimum", &Fields::minimum, &Builder::minimum},
                                      Required{"maximum", &Fields::maximum, &Builder::maximum},
                                      Required{"unit", &Fields::unit, &Builder::unit}};
        return table;
    }
};

template <>
struct DocumentTable<BoresightCalibration> : DocumentTableOf<BoresightCalibration> {
    static const auto& rows() {
        static const std::tuple table{
            Required{"field_of_view", &Fields::fieldOfView, &Builder::fieldOfView},
            Required{"initial_boresight_angles", &Fields::initialBoresightAngles,
                     &Builder::initialBoresightAngles},
            Required{"number_of_criteria", &Fields::numberOfCriteria, &Builder::numberOfCriteria, NO_UNIT},
            Required{"lever_arm_accuracy", &Fields::leverArmAccuracy, &Builder::leverArmAccuracy, VALUE_ONLY},
            Required{"position_accuracy", &Fields::positionAccuracy, &Builder::positionAccuracy, VALUE_ONLY},
            Required{"attitude_accuracy", &Fields::attitudeAccuracy, &Builder::attitudeAccuracy, VALUE_ONLY},
            Required{"lidar_accuracy", &Fields::lidarAccuracy, &Builder::lidarAccuracy, VALUE_ONLY}};
        return table;
    }
};

template <>
struct DocumentTable<Vector3> : DocumentTableOf<Vector3> {
    static const auto& rows() {
        static const std::tuple table{PassingOptions{"x", &Fields::x, &Builder::x},
                                      PassingOptions{"y", &Fields::y, &Builder::y},
                                      PassingOptions{"z", &Fields::z, &Builder::z}};
        return table;
    }
};

template <>
struct DocumentTable<Angles3> : DocumentTableOf<Angles3> {
    static const auto& rows() {
        static const std::tuple table{PassingOptions{"roll", &Fields::roll, &Builder::roll},
                                      PassingOptions{"pitch", &Fields::pitch, &Builder::pitch},
                                      PassingOptions{"yaw", &Fields::yaw, &Builder::yaw}};
        return table;
    }
};

template <>
struct DocumentTable<CameraAngles3> : DocumentTableOf<CameraAngles3> {
    static const auto& rows() {
        static const std::tuple table{Required{"Tx", &Fields::tx, &Builder::tx},
                                      Required{"Ty", &Fields::ty, &Builder::ty},
                                      Required{"Tz", &Fields::tz, &Builder::tz}};
        return table;
    }
};

template <>
struct DocumentTable<MountingAngles3> : DocumentTableOf<MountingAngles3> {
    static const auto& rows() {
        static const std::tuple table{Required{"x", &Fields::x, &Builder::x, NO_CONSTRAINTS},
                                      Required{"y", &Fields::y, &Builder::y, NO_CONSTRAINTS},
                                      Required{"z", &Fields::z, &Builder::z, NO_CONSTRAINTS}};
        return table;
    }
};

} // namespace norel::Desktop::Domain::Payloads

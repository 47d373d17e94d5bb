#include "norel/Desktop/DateTime/DateTimeConversion.h"
#include "reports/ProfileParameters.h"
#include "reports/ProfileReport.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;
using DateTime::DateTimeConversion;

Json toJson(const FieldOfViewRange& range) {
    Json object;
    object.set("minimum", Json(range.getMinimum()));
    object.set("maximum", Json(range.getMaximum()));
    object.set("unit", Json(range.getUnit()));
    return object;
}

Json toJson(const Lidar& lidar) {
    const Georeferencing georeferencing = lidar.getGeoreferencing();
    const FieldOfViews fieldOfViews = georeferencing.getFieldOfViews();
    std::vector<Json> choices;
    for (const FieldOfView& choice : fieldOfViews.getListOfFieldOfViews()) {
        Json object;
        object.set("view", toJson(choice.getView()));
        object.set("filter", toJson(choice.getFilter()));
        object.set("is_default", Json(choice.getIsDefault()));
        choices.push_back(std::move(object));
    }
    Json calibration;
    if (const auto document = georeferencing.getCalibrationDocument()) {
        calibration.set("name", Json(document->getName()));
        calibration.set("bytes", Json(static_cast<unsigned int>(document->getContent().size())));
    }
    Json object;
    object.set("file_extension", Json(lidar.getFileExtension()));
    object.set("alignment", Json(lidar.getAlignment()));
    object.set("field_of_views", Json(std::move(choices)));
    object.set("calibration_document", calibration);
    object.set("calibration_range", toJson(lidar.getBoresightCalibration().getFieldOfView()));
    return object;
}

/// ".[2].lidar.imu_latency": the path from the beginning of the document, as jq takes it.
Json makeQuery(unsigned int index, const std::string& path = "") {
    std::string query = ".[" + std::to_string(index) + ']';
    if (!path.empty())
        query += '.' + path;
    for (std::size_t at = 1; (at = query.find(".[", at)) != std::string::npos;)
        query.erase(at, 1);
    return Json(query);
}

Json toJson(const ProfileParameter& parameter, unsigned int index) {
    Json object;
    object.set("path", Json(parameter.path));
    object.set("query", makeQuery(index, parameter.path));
    object.set("value", numberToJson(parameter.value));
    if (parameter.unit)
        object.set("unit", Json(*parameter.unit));
    if (parameter.range) {
        object.set("minimum", numberToJson(parameter.range->first));
        object.set("maximum", numberToJson(parameter.range->second));
    }
    if (parameter.precision)
        object.set("precision", Json(*parameter.precision));
    if (parameter.defaultValue)
        object.set("default", numberToJson(*parameter.defaultValue));
    if (!parameter.presets.empty()) {
        Json presets;
        for (const auto& [name, number] : parameter.presets)
            presets.set(name, numberToJson(number));
        object.set("presets", presets);
    }
    object.set("differs_from_default", Json(parameter.differsFromDefault()));
    return object;
}

} // namespace

std::vector<std::string> listOrientations(const Profile& profile) {
    std::vector<std::string> orientations;
    const Cameras cameras = profile.getTrajectory().getCameras();
    for (const Camera& camera : cameras.getListOfCameras())
        orientations.push_back(camera.getOrientation());
    return orientations;
}

Json makeJsonIdentity(const Profile& profile) {
    Json object;
    object.set("id", Json(profile.getId()));
    object.set("name", Json(profile.getName()));
    object.set("product", Json(profile.getProduct()));
    object.set("serial_number", Json(profile.getSerialNumber()));
    object.set("creation_time", Json(DateTimeConversion::toIso8601(profile.getCreationTime())));
    object.set("last_modification_time",
               Json(DateTimeConversion::toIso8601(profile.getLastModificationTime())));
    return object;
}

std::string makeJsonReport(const Profile& profile, unsigned int index) {
    const ProfileSettings settings = listSettings(profile);
    std::vector<Json> parameters;
    for (const ProfileParameter& parameter : settings.parameters)
        parameters.push_back(toJson(parameter, index));
    std::vector<Json> textLists;
    for (const auto& [path, texts] : settings.textLists) {
        Json object;
        object.set("path", Json(path));
        object.set("query", makeQuery(index, path));
        object.set("texts", Json(texts));
        textLists.push_back(std::move(object));
    }
    const auto lidar = profile.getLidar();
    Json object = makeJsonIdentity(profile);
    object.set("path", Json('[' + std::to_string(index) + ']'));
    object.set("query", makeQuery(index));
    object.set("lidar", lidar ? toJson(*lidar) : Json());
    object.set("cameras", Json(listOrientations(profile)));
    const Trajectory trajectory = profile.getTrajectory();
    const auto external = trajectory.getImuExternal();
    object.set("gnss_onboard", Json(trajectory.getImuOnboard().getGnssStandardDeviation()));
    object.set("gnss_external", external ? Json(external->getGnssStandardDeviation()) : Json());
    object.set("stabilized_mount", Json(trajectory.getStabilizedMount()));
    object.set("parameters", Json(std::move(parameters)));
    object.set("text_lists", Json(std::move(textLists)));
    return printableJson(object.toString(4)) + '\n';
}

} // namespace norel::Desktop::PayloadProfiles

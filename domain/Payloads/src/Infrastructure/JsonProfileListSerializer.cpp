#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include "DocumentText.h"
#include "DocumentTree.h"
#include "norel/Desktop/DateTime/DateTimeConversion.h"

#include <exception>
#include <typeinfo>

namespace norel::Desktop::Domain::Payloads {
namespace {

using Json = DataFormat::Json;
using JsonPath = JsonProfileListSerializer::JsonPath;
using Options = JsonProfileListSerializer::Options;
using Serializer = JsonProfileListSerializer;

constexpr int INDENTATION = 4;

/// The result of `work`; empty when it fails.
template <typename Work>
auto tryTo(const Work& work) -> std::optional<decltype(work())> {
    try {
        return work();
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

template <typename AnyJson>
std::optional<ProfileList> tryToReadText(const std::string& text) {
    if constexpr (HasTextReader<AnyJson>)
        return tryTo([&] { return DocumentTextReader<AnyJson>(text).readList(); });
    else
        return std::nullopt;
}

template <typename AnyJson>
std::optional<std::string> tryToWriteText(const ProfileList& list) {
    if constexpr (HasTextWriter<AnyJson>)
        return tryTo([&] { return DocumentTextWriter<AnyJson>(INDENTATION).write(list); });
    else
        return std::nullopt;
}

/// A derived serializer may read and write any part of a document in its own way.
bool isDerived(const Serializer& serializer) { return typeid(serializer) != typeid(Serializer); }

} // namespace

ProfileListSerializer::~ProfileListSerializer() = default;

std::string Serializer::serialize(const ProfileList& list) const {
    if (!isDerived(*this))
        if (auto text = tryToWriteText<Json>(list))
            return *std::move(text);
    return toJson(list, Options()).toString(INDENTATION);
}

ProfileList Serializer::deserialize(const std::string& text) const {
    if (text.empty())
        return {};
    if (!isDerived(*this))
        if (auto list = tryToReadText<Json>(text))
            return *std::move(list);
    ProfileList list;
    try {
        fromJson(JsonPath(Json::fromString(text)), list, Options());
    } catch (const Json::JsonError& error) {
        throw ParsingError(error.what());
    }
    return list;
}

Json Serializer::toJson(const ProfileList& value, Options /*options*/) const {
    return writeArray(*this, ValueAccess::profilesOf(value));
}

Json Serializer::toJson(const Cameras& value, Options /*options*/) const {
    return writeArray(*this, value.getListOfCameras());
}

Json Serializer::toJson(const FieldOfViews& value, Options /*options*/) const {
    return writeArray(*this, value.getListOfFieldOfViews());
}

Json Serializer::toJson(const DateTime::DateTime& value, Options options) const {
    return toJson(DateTime::DateTimeConversion::toIso8601(value), options);
}

// Every other type has a table, or is a scalar that JSON values support directly.

Json Serializer::toJson(const Profile& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Trajectory& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Camera& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Imu& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Lidar& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const PointCloudDirectColorization::PointCloudDirectColorization& value,
                        Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const PointCloudDirectColorization::Images& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const PointCloudDirectColorization::Distortion& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const GroundClassification::GroundClassification& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const GroundClassification::HullProcessing& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const GroundClassification::InteriorProcessing& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const GroundClassification::Segmentation& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const GroundClassification::DigitalSurfaceModel& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const GroundClassification::Densification& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const StripAdjustment::StripAdjustment& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const StripAdjustment::Sampling& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const StripAdjustment::Rejection& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const StripAdjustment::Preprocessing& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const StripAdjustment::Minimization& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const LidarCoveragePreview& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const PrecisionEnhancement& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const MorphologicalRejection& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const CalibrationDocument& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const BoresightCalibration& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Georeferencing& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const FieldOfView& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const FieldOfViewRange& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const CameraAngles3& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const MountingAngles3& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Vector3& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Angles3& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const std::map<std::string, int>& value, Options /*options*/) const {
    return Json(value);
}
Json Serializer::toJson(const std::map<std::string, unsigned int>& value, Options /*options*/) const {
    return Json(value);
}
Json Serializer::toJson(const std::map<std::string, double>& value, Options /*options*/) const {
    return Json(value);
}
Json Serializer::toJson(const Parameter<int>& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Parameter<unsigned int>& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const Parameter<double>& value, Options options) const {
    return writeObject(*this, value, options);
}
Json Serializer::toJson(const std::vector<std::string>& value, Options /*options*/) const {
    return Json(value);
}
Json Serializer::toJson(const std::string& value, Options /*options*/) const { return Json(value); }
Json Serializer::toJson(const bool& value, Options /*options*/) const { return Json(value); }
Json Serializer::toJson(const int& value, Options /*options*/) const { return Json(value); }
Json Serializer::toJson(const unsigned int& value, Options /*options*/) const { return Json(value); }
Json Serializer::toJson(const double& value, Options /*options*/) const { return Json(value); }

void Serializer::fromJson(const JsonPath& path, ProfileList& target, Options /*options*/) const {
    reserveProfiles(target, path.getValue());
    readArray<Profile::Builder>(*this, path, path.getValue().begin(), [&](const Profile::Builder& builder) {
        ValueAccess::append(target, builder.build());
    });
}

void Serializer::fromJson(const JsonPath& path, Cameras::Builder& builder, Options /*options*/) const {
    readArray(*this, path, builder.listOfCameras);
}

void Serializer::fromJson(const JsonPath& path, FieldOfViews::Builder& builder, Options /*options*/) const {
    readArray(*this, path, builder.listOfFieldOfViews);
}

void Serializer::fromJson(const JsonPath& path, DateTime::DateTime& target, Options options) const {
    std::string text;
    fromJson(path, text, options);
    try {
        target = DateTime::DateTimeConversion::fromIso8601(text);
    } catch (const DateTime::DateTimeConversion::InvalidArgumentError& error) {
        throw ParsingError(error.what() + (" at " + path.getPathString()));
    }
}

void Serializer::fromJson(const JsonPath& path, Profile::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Trajectory::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Camera::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Imu::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Lidar::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path,
                          PointCloudDirectColorization::PointCloudDirectColorization::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, PointCloudDirectColorization::Images::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, PointCloudDirectColorization::Distortion::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::GroundClassification::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::HullProcessing::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::InteriorProcessing::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::Segmentation::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::Densification::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::DigitalSurfaceModel::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::StripAdjustment::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Sampling::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Rejection::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Preprocessing::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Minimization::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, LidarCoveragePreview::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, PrecisionEnhancement::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, MorphologicalRejection::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, CalibrationDocument::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, BoresightCalibration::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Georeferencing::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, FieldOfView::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, FieldOfViewRange::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, CameraAngles3::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, MountingAngles3::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Vector3::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Angles3::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, std::map<std::string, int>& target,
                          Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, std::map<std::string, unsigned int>& target,
                          Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, std::map<std::string, double>& target,
                          Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, Parameter<int>::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Parameter<unsigned int>::Builder& builder,
                          Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Parameter<double>::Builder& builder, Options options) const {
    readObject(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, std::vector<std::string>& target, Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, std::string& target, Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, bool& target, Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, int& target, Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, unsigned int& target, Options /*options*/) const {
    readLeaf(path, target);
}
void Serializer::fromJson(const JsonPath& path, double& target, Options /*options*/) const {
    readLeaf(path, target);
}

} // namespace norel::Desktop::Domain::Payloads

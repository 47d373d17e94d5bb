#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include "DocumentTables.h"
#include "ParsingErrors.h"
#include "norel/Desktop/DateTime/DateTimeConversion.h"

#include <typeinfo>

namespace norel::Desktop::Domain::Payloads {
namespace {

using Json = DataFormat::Json;
using JsonPath = JsonProfileListSerializer::JsonPath;
using Options = JsonProfileListSerializer::Options;
using Serializer = JsonProfileListSerializer;

constexpr int INDENTATION = 4;

template <typename Value>
Json writeObject(const Serializer& serializer, const Value& value, Options options) {
    const auto& fields = ValueAccess::fieldsOf(value);
    const auto isWritten = [&](const auto& row) { return row.isWritten(fields, options); };
    return std::apply(
        [&](const auto&... rows) {
            DocumentWriter writer(serializer, options, (std::size_t(isWritten(rows)) + ...));
            ((isWritten(rows) ? rows.write(writer, fields) : void()), ...);
            return writer.takeObject();
        },
        DocumentTable<Value>::rows());
}

template <typename Value>
void readObject(const Serializer& serializer, const JsonPath& path, typename Value::Builder& builder,
                Options options) {
    const DocumentReader reader(serializer, path, options);
    const auto readRow = [&](const auto& row) { row.read(reader, builder); };
    const auto readRows = [&]<std::size_t... I>(std::index_sequence<I...>) {
        (readRow(std::get<I>(DocumentTable<Value>::rows())), ...);
    };
    readRows(typename ReadingOrder<Value>::Positions());
}

template <typename Items>
Json writeArray(const Serializer& serializer, const Items& items) {
    std::vector<Json> elements;
    elements.reserve(items.size());
    for (const auto& item : items)
        elements.push_back(serializer.toJson(item, Options()));
    return Json(std::move(elements));
}

/// The text of the array, made from one small tree an item where the host can, which its contract does not
/// ask for.
template <typename AnyJson, typename Items>
std::string writeArrayText(const Serializer& serializer, const Items& items) {
    const auto makeElement = [&](std::size_t i) { return serializer.toJson(items[i], Options()); };
    if constexpr (requires { AnyJson::arrayToString(items.size(), makeElement, INDENTATION); })
        return AnyJson::arrayToString(items.size(), makeElement, INDENTATION);
    else
        return writeArray(serializer, items).toString(INDENTATION);
}

/// Reads each element into a fresh item and hands it to `take`.
template <typename Item, typename Take>
void readArray(const Serializer& serializer, const JsonPath& path, DataFormat::JsonConstIterator element,
               const Take& take) {
    const DocumentReader reader(serializer, path, Options());
    const auto end = path.getValue().end();
    for (unsigned int index = 0; element != end; ++element, ++index) {
        Item item;
        reader.readItem(*element, index, item);
        take(std::move(item));
    }
}

template <typename Item>
void readArray(const Serializer& serializer, const JsonPath& path, std::vector<Item>& items) {
    const auto begin = withPath(path, [&] { return path.getValue().begin(); });
    readArray<Item>(serializer, path, begin, [&](Item&& item) { items.push_back(std::move(item)); });
}

/// A growing list would hold its profiles twice. The bound keeps a short text from claiming much.
void reserveProfiles(ProfileList& list, const Json& array) {
    constexpr std::size_t maximum = 2000;
    std::size_t count = 0;
    const auto end = array.end();
    for (auto element = array.begin(); count < maximum && element != end; ++element)
        ++count;
    ValueAccess::reserve(list, count);
}

template <typename Leaf>
void readLeaf(const JsonPath& path, Leaf& target) {
    target = withPath(path, [&] { return path.getValue().as<Leaf>(); });
}

} // namespace

ProfileListSerializer::ParsingError::~ParsingError() = default;
ProfileListSerializer::~ProfileListSerializer() = default;

std::string Serializer::serialize(const ProfileList& list) const {
    if (typeid(*this) == typeid(Serializer)) { // a derived one may override toJson of the list
        try {
            return writeArrayText<Json>(*this, ValueAccess::profilesOf(list));
        } catch (const Json::JsonError&) { // the whole list tells which of its errors comes first
        }
    }
    return toJson(list, Options()).toString(INDENTATION);
}

ProfileList Serializer::deserialize(const std::string& text) const {
    ProfileList list;
    if (text.empty())
        return list;
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

// Every other value is an object of its table, or a leaf of the JSON value itself.

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
        Profile profile = builder.build();
        target.add(profile);
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
    readObject<Profile>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Trajectory::Builder& builder, Options options) const {
    readObject<Trajectory>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Camera::Builder& builder, Options options) const {
    readObject<Camera>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Imu::Builder& builder, Options options) const {
    readObject<Imu>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Lidar::Builder& builder, Options options) const {
    readObject<Lidar>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path,
                          PointCloudDirectColorization::PointCloudDirectColorization::Builder& builder,
                          Options options) const {
    readObject<PointCloudDirectColorization::PointCloudDirectColorization>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, PointCloudDirectColorization::Images::Builder& builder,
                          Options options) const {
    readObject<PointCloudDirectColorization::Images>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, PointCloudDirectColorization::Distortion::Builder& builder,
                          Options options) const {
    readObject<PointCloudDirectColorization::Distortion>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::GroundClassification::Builder& builder,
                          Options options) const {
    readObject<GroundClassification::GroundClassification>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::HullProcessing::Builder& builder,
                          Options options) const {
    readObject<GroundClassification::HullProcessing>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::InteriorProcessing::Builder& builder,
                          Options options) const {
    readObject<GroundClassification::InteriorProcessing>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::Segmentation::Builder& builder,
                          Options options) const {
    readObject<GroundClassification::Segmentation>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::Densification::Builder& builder,
                          Options options) const {
    readObject<GroundClassification::Densification>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, GroundClassification::DigitalSurfaceModel::Builder& builder,
                          Options options) const {
    readObject<GroundClassification::DigitalSurfaceModel>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::StripAdjustment::Builder& builder,
                          Options options) const {
    readObject<StripAdjustment::StripAdjustment>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Sampling::Builder& builder,
                          Options options) const {
    readObject<StripAdjustment::Sampling>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Rejection::Builder& builder,
                          Options options) const {
    readObject<StripAdjustment::Rejection>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Preprocessing::Builder& builder,
                          Options options) const {
    readObject<StripAdjustment::Preprocessing>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, StripAdjustment::Minimization::Builder& builder,
                          Options options) const {
    readObject<StripAdjustment::Minimization>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, LidarCoveragePreview::Builder& builder,
                          Options options) const {
    readObject<LidarCoveragePreview>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, PrecisionEnhancement::Builder& builder,
                          Options options) const {
    readObject<PrecisionEnhancement>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, MorphologicalRejection::Builder& builder,
                          Options options) const {
    readObject<MorphologicalRejection>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, CalibrationDocument::Builder& builder,
                          Options options) const {
    readObject<CalibrationDocument>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, BoresightCalibration::Builder& builder,
                          Options options) const {
    readObject<BoresightCalibration>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Georeferencing::Builder& builder, Options options) const {
    readObject<Georeferencing>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, FieldOfView::Builder& builder, Options options) const {
    readObject<FieldOfView>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, FieldOfViewRange::Builder& builder, Options options) const {
    readObject<FieldOfViewRange>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, CameraAngles3::Builder& builder, Options options) const {
    readObject<CameraAngles3>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, MountingAngles3::Builder& builder, Options options) const {
    readObject<MountingAngles3>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Vector3::Builder& builder, Options options) const {
    readObject<Vector3>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Angles3::Builder& builder, Options options) const {
    readObject<Angles3>(*this, path, builder, options);
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
    readObject<Parameter<int>>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Parameter<unsigned int>::Builder& builder,
                          Options options) const {
    readObject<Parameter<unsigned int>>(*this, path, builder, options);
}
void Serializer::fromJson(const JsonPath& path, Parameter<double>::Builder& builder, Options options) const {
    readObject<Parameter<double>>(*this, path, builder, options);
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

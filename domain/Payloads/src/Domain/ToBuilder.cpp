#include "norel/Desktop/Domain/Payloads/ToBuilder.h"

#include "Members.h"
#include "ValueAccess.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <optional>
#include <type_traits>
#include <vector>

namespace norel::Desktop::Domain::Payloads {
namespace {

/// What a builder holds for a field: a builder for a value, and a copy of anything else, such as a string.
template <typename Field>
auto toMember(const Field& field) {
    if constexpr (requires { typename Field::Builder; })
        return toBuilder(field);
    else
        return field;
}

template <typename Field>
auto toMember(const std::optional<Field>& field) {
    return field ? std::optional(toMember(*field)) : std::nullopt;
}

template <typename Field>
auto toMember(const std::vector<Field>& fields) {
    std::vector<decltype(toMember(fields.front()))> members;
    members.reserve(fields.size());
    for (const Field& field : fields)
        members.push_back(toMember(field));
    return members;
}

} // namespace

template <typename Value>
typename Value::Builder toBuilder(const Value& value) {
    using Builder = typename Value::Builder;
    const auto& fields = ValueAccess::fieldsOf(value);
    if constexpr (std::is_same_v<ValueAccess::Fields<Value>, Builder>)
        return fields;
    else
        return std::apply([](const auto&... field) { return Builder{toMember(field)...}; },
                          tieMembersLike<Builder>(fields));
}

template NOREL_PAYLOADS_EXPORT Parameter<double>::Builder toBuilder(const Parameter<double>&);
template NOREL_PAYLOADS_EXPORT Parameter<unsigned int>::Builder toBuilder(const Parameter<unsigned int>&);
template NOREL_PAYLOADS_EXPORT Parameter<int>::Builder toBuilder(const Parameter<int>&);
template NOREL_PAYLOADS_EXPORT Vector3::Builder toBuilder(const Vector3&);
template NOREL_PAYLOADS_EXPORT Angles3::Builder toBuilder(const Angles3&);
template NOREL_PAYLOADS_EXPORT CameraAngles3::Builder toBuilder(const CameraAngles3&);
template NOREL_PAYLOADS_EXPORT MountingAngles3::Builder toBuilder(const MountingAngles3&);
template NOREL_PAYLOADS_EXPORT FieldOfViewRange::Builder toBuilder(const FieldOfViewRange&);
template NOREL_PAYLOADS_EXPORT FieldOfView::Builder toBuilder(const FieldOfView&);
template NOREL_PAYLOADS_EXPORT FieldOfViews::Builder toBuilder(const FieldOfViews&);
template NOREL_PAYLOADS_EXPORT Camera::Builder toBuilder(const Camera&);
template NOREL_PAYLOADS_EXPORT Cameras::Builder toBuilder(const Cameras&);
template NOREL_PAYLOADS_EXPORT Imu::Builder toBuilder(const Imu&);
template NOREL_PAYLOADS_EXPORT Trajectory::Builder toBuilder(const Trajectory&);
template NOREL_PAYLOADS_EXPORT CalibrationDocument::Builder toBuilder(const CalibrationDocument&);
template NOREL_PAYLOADS_EXPORT Georeferencing::Builder toBuilder(const Georeferencing&);
template NOREL_PAYLOADS_EXPORT BoresightCalibration::Builder toBuilder(const BoresightCalibration&);
template NOREL_PAYLOADS_EXPORT MorphologicalRejection::Builder toBuilder(const MorphologicalRejection&);
template NOREL_PAYLOADS_EXPORT PrecisionEnhancement::Builder toBuilder(const PrecisionEnhancement&);
template NOREL_PAYLOADS_EXPORT LidarCoveragePreview::Builder toBuilder(const LidarCoveragePreview&);
template NOREL_PAYLOADS_EXPORT StripAdjustment::Preprocessing::Builder
toBuilder(const StripAdjustment::Preprocessing&);
template NOREL_PAYLOADS_EXPORT StripAdjustment::Sampling::Builder toBuilder(const StripAdjustment::Sampling&);
template NOREL_PAYLOADS_EXPORT StripAdjustment::Rejection::Builder
toBuilder(const StripAdjustment::Rejection&);
template NOREL_PAYLOADS_EXPORT StripAdjustment::Minimization::Builder
toBuilder(const StripAdjustment::Minimization&);
template NOREL_PAYLOADS_EXPORT StripAdjustment::StripAdjustment::Builder
toBuilder(const StripAdjustment::StripAdjustment&);
template NOREL_PAYLOADS_EXPORT GroundClassification::Segmentation::Builder
toBuilder(const GroundClassification::Segmentation&);
template NOREL_PAYLOADS_EXPORT GroundClassification::Densification::Builder
toBuilder(const GroundClassification::Densification&);
template NOREL_PAYLOADS_EXPORT GroundClassification::DigitalSurfaceModel::Builder
toBuilder(const GroundClassification::DigitalSurfaceModel&);
template NOREL_PAYLOADS_EXPORT GroundClassification::InteriorProcessing::Builder
toBuilder(const GroundClassification::InteriorProcessing&);
template NOREL_PAYLOADS_EXPORT GroundClassification::HullProcessing::Builder
toBuilder(const GroundClassification::HullProcessing&);
template NOREL_PAYLOADS_EXPORT GroundClassification::GroundClassification::Builder
toBuilder(const GroundClassification::GroundClassification&);
template NOREL_PAYLOADS_EXPORT PointCloudDirectColorization::Distortion::Builder
toBuilder(const PointCloudDirectColorization::Distortion&);
template NOREL_PAYLOADS_EXPORT PointCloudDirectColorization::Images::Builder
toBuilder(const PointCloudDirectColorization::Images&);
template NOREL_PAYLOADS_EXPORT PointCloudDirectColorization::PointCloudDirectColorization::Builder
toBuilder(const PointCloudDirectColorization::PointCloudDirectColorization&);
template NOREL_PAYLOADS_EXPORT Lidar::Builder toBuilder(const Lidar&);
template NOREL_PAYLOADS_EXPORT Profile::Builder toBuilder(const Profile&);

} // namespace norel::Desktop::Domain::Payloads

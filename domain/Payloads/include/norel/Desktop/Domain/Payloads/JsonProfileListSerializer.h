#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListSerializer.h"

#include <map>
#include <string>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// Profile lists as JSON documents: an array of profile objects, indented by four spaces. An empty text is an
/// empty list. Unknown members of a document are ignored.
///
/// Every type of the model has a pair of virtual operations. `toJson` returns the JSON of a value. `fromJson`
/// fills a builder from the JSON at a path without checking the rules of the model; it throws ParsingError,
/// whose message ends in " at " and the path. They call one another virtually, so a derived serializer that
/// overrides the operations of a type changes that type wherever it occurs.
///
/// Stateless: several threads may share one.
class NOREL_PAYLOADS_EXPORT JsonProfileListSerializer : public ProfileListSerializer {
public:
    using Json = DataFormat::Json;
    class JsonPath;

    /// Which members of a Parameter object are written and read. Other objects define the flags of their
    /// members themselves; only Vector3 and Angles3 pass on the flags that they receive.
    class Options {
    public:
        static constexpr unsigned int VALUE_ONLY = 1;     ///< no default, presets, bounds and precision
        static constexpr unsigned int NO_UNIT = 2;        ///< no unit
        static constexpr unsigned int NO_CONSTRAINTS = 4; ///< no bounds and precision

        constexpr Options() = default;
        /// `flags` are combined by bitwise or.
        constexpr Options(unsigned int flags) : bits(flags) {}

        /// Whether any of `someFlags` is set.
        constexpr bool hasAny(unsigned int someFlags) const { return (bits & someFlags) != 0; }

    private:
        unsigned int bits = 0;
    };

    std::string serialize(const ProfileList& list) const override;
    ProfileList deserialize(const std::string& text) const override;

    virtual Json toJson(const ProfileList& value, Options options) const;
    virtual Json toJson(const Profile& value, Options options) const;
    virtual Json toJson(const Trajectory& value, Options options) const;
    virtual Json toJson(const Cameras& value, Options options) const;
    virtual Json toJson(const Camera& value, Options options) const;
    virtual Json toJson(const Imu& value, Options options) const;
    virtual Json toJson(const Lidar& value, Options options) const;
    virtual Json toJson(const PointCloudDirectColorization::PointCloudDirectColorization& value,
                        Options options) const;
    virtual Json toJson(const PointCloudDirectColorization::Images& value, Options options) const;
    virtual Json toJson(const PointCloudDirectColorization::Distortion& value, Options options) const;
    virtual Json toJson(const GroundClassification::GroundClassification& value, Options options) const;
    virtual Json toJson(const GroundClassification::HullProcessing& value, Options options) const;
    virtual Json toJson(const GroundClassification::InteriorProcessing& value, Options options) const;
    virtual Json toJson(const GroundClassification::Segmentation& value, Options options) const;
    virtual Json toJson(const GroundClassification::DigitalSurfaceModel& value, Options options) const;
    virtual Json toJson(const GroundClassification::Densification& value, Options options) const;
    virtual Json toJson(const StripAdjustment::StripAdjustment& value, Options options) const;
    virtual Json toJson(const StripAdjustment::Sampling& value, Options options) const;
    virtual Json toJson(const StripAdjustment::Rejection& value, Options options) const;
    virtual Json toJson(const StripAdjustment::Preprocessing& value, Options options) const;
    virtual Json toJson(const StripAdjustment::Minimization& value, Options options) const;
    virtual Json toJson(const LidarCoveragePreview& value, Options options) const;
    virtual Json toJson(const PrecisionEnhancement& value, Options options) const;
    virtual Json toJson(const MorphologicalRejection& value, Options options) const;
    virtual Json toJson(const CalibrationDocument& value, Options options) const;
    virtual Json toJson(const BoresightCalibration& value, Options options) const;
    virtual Json toJson(const Georeferencing& value, Options options) const;
    virtual Json toJson(const FieldOfViews& value, Options options) const;
    virtual Json toJson(const FieldOfView& value, Options options) const;
    virtual Json toJson(const FieldOfViewRange& value, Options options) const;
    virtual Json toJson(const CameraAngles3& value, Options options) const;
    virtual Json toJson(const MountingAngles3& value, Options options) const;
    virtual Json toJson(const Vector3& value, Options options) const;
    virtual Json toJson(const Angles3& value, Options options) const;
    virtual Json toJson(const std::map<std::string, int>& value, Options options) const;
    virtual Json toJson(const std::map<std::string, unsigned int>& value, Options options) const;
    virtual Json toJson(const std::map<std::string, double>& value, Options options) const;
    virtual Json toJson(const Parameter<int>& value, Options options) const;
    virtual Json toJson(const Parameter<unsigned int>& value, Options options) const;
    virtual Json toJson(const Parameter<double>& value, Options options) const;
    virtual Json toJson(const DateTime::DateTime& value, Options options) const;
    virtual Json toJson(const std::vector<std::string>& value, Options options) const;
    virtual Json toJson(const std::string& value, Options options) const;
    virtual Json toJson(const bool& value, Options options) const;
    virtual Json toJson(const int& value, Options options) const;
    virtual Json toJson(const unsigned int& value, Options options) const;
    virtual Json toJson(const double& value, Options options) const;

    virtual void fromJson(const JsonPath& path, ProfileList& target, Options options) const;
    virtual void fromJson(const JsonPath& path, Profile::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Trajectory::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Cameras::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Camera::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Imu::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Lidar::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path,
                          PointCloudDirectColorization::PointCloudDirectColorization::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, PointCloudDirectColorization::Images::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, PointCloudDirectColorization::Distortion::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, GroundClassification::GroundClassification::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, GroundClassification::HullProcessing::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, GroundClassification::InteriorProcessing::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, GroundClassification::Segmentation::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, GroundClassification::Densification::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, GroundClassification::DigitalSurfaceModel::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, StripAdjustment::StripAdjustment::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, StripAdjustment::Sampling::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, StripAdjustment::Rejection::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, StripAdjustment::Preprocessing::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, StripAdjustment::Minimization::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, LidarCoveragePreview::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, PrecisionEnhancement::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, MorphologicalRejection::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, CalibrationDocument::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, BoresightCalibration::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, Georeferencing::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, FieldOfViews::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, FieldOfView::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, FieldOfViewRange::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, CameraAngles3::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, MountingAngles3::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Vector3::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Angles3::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, std::map<std::string, int>& target, Options options) const;
    virtual void fromJson(const JsonPath& path, std::map<std::string, unsigned int>& target,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, std::map<std::string, double>& target, Options options) const;
    virtual void fromJson(const JsonPath& path, Parameter<int>::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, Parameter<unsigned int>::Builder& builder,
                          Options options) const;
    virtual void fromJson(const JsonPath& path, Parameter<double>::Builder& builder, Options options) const;
    virtual void fromJson(const JsonPath& path, DateTime::DateTime& target, Options options) const;
    virtual void fromJson(const JsonPath& path, std::vector<std::string>& target, Options options) const;
    virtual void fromJson(const JsonPath& path, std::string& target, Options options) const;
    virtual void fromJson(const JsonPath& path, bool& target, Options options) const;
    virtual void fromJson(const JsonPath& path, int& target, Options options) const;
    virtual void fromJson(const JsonPath& path, unsigned int& target, Options options) const;
    virtual void fromJson(const JsonPath& path, double& target, Options options) const;
};

/// A position in a document that is being read: a JSON value and its path from the root. An object must not
/// be used by several threads at once, even through const operations.
class NOREL_PAYLOADS_EXPORT JsonProfileListSerializer::JsonPath {
public:
    /// The root, with an empty path.
    JsonPath(const Json& root);
    JsonPath(const JsonPath& other);
    JsonPath& operator=(const JsonPath&) = delete;
    ~JsonPath();

    const Json& getValue() const { return json; }

    /// The path to a member. Throws ParsingError with this path when the member does not exist.
    JsonPath makePathToKey(const std::string& key) const;

    /// The path to the given element of this array, which has that index.
    JsonPath makePathToIndex(const Json& element, unsigned int index) const;

    bool contains(const std::string& key) const;

    /// Whether the member is present and not null.
    bool isOptionalSet(const std::string& key) const;

    /// The steps from the root: the key of a member, "[INDEX]" for an element.
    const std::vector<std::string>& getPath() const;

    /// The steps joined by "."; empty for the root.
    std::string getPathString() const;

private:
    friend class DocumentReader;
    friend struct ChildPath;

    // While the library reads, a path only refers to its parent and its key, since the steps of most paths
    // are never needed. A copy, and so every path returned to a caller, holds its own steps.
    JsonPath(const JsonPath& parent, Json value, const std::string& key);
    JsonPath(const JsonPath& parent, Json value, unsigned int index);
    const Json
    getMember(const std::string& key) const; // NOLINT(readability-const-return-type): as Json::getValue

    Json json;
    mutable std::vector<std::string> steps; // of a path with a parent: filled when first requested
    const JsonPath* parentPath = nullptr;
    const std::string* lastKey = nullptr;
    unsigned int lastIndex = 0;
};

} // namespace norel::Desktop::Domain::Payloads

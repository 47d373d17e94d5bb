#include "reports/ProfileParameters.h"

#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;

/// Records every parameter and its path while the document of one profile is read. So the list of parameters
/// comes from the document's own tables.
class SettingsRecorder : public JsonProfileListSerializer {
public:
    explicit SettingsRecorder(ProfileSettings& target) : settings(target) {}

    using JsonProfileListSerializer::fromJson;

    void fromJson(const JsonPath& path, Parameter<int>::Builder& builder, Options options) const override {
        JsonProfileListSerializer::fromJson(path, builder, options);
        record(path, builder, options);
    }

    void fromJson(const JsonPath& path, Parameter<unsigned int>::Builder& builder,
                  Options options) const override {
        JsonProfileListSerializer::fromJson(path, builder, options);
        record(path, builder, options);
    }

    void fromJson(const JsonPath& path, Parameter<double>::Builder& builder, Options options) const override {
        JsonProfileListSerializer::fromJson(path, builder, options);
        record(path, builder, options);
    }

    void fromJson(const JsonPath& path, std::vector<std::string>& texts, Options options) const override {
        JsonProfileListSerializer::fromJson(path, texts, options);
        settings.textLists.push_back({pathInProfile(path), texts});
    }

private:
    static std::string pathInProfile(const JsonPath& path) {
        const std::string text = path.getPathString();
        return text.substr(path.getPath().front().size() + 1); // without "[0]."
    }

    template <typename Builder>
    void record(const JsonPath& path, const Builder& builder, Options options) const {
        ProfileParameter parameter;
        parameter.path = pathInProfile(path);
        parameter.value = builder.value;
        if (!options.hasAny(Options::NO_UNIT))
            parameter.unit = builder.unit;
        if (!options.hasAny(Options::VALUE_ONLY)) {
            parameter.defaultValue = builder.defaultValue;
            parameter.presets.insert(builder.presets.begin(), builder.presets.end());
        }
        if (!options.hasAny(Options::VALUE_ONLY | Options::NO_CONSTRAINTS)) {
            parameter.range = {builder.minimum, builder.maximum};
            parameter.precision = builder.precision;
        }
        settings.parameters.push_back(std::move(parameter));
    }

    ProfileSettings& settings;
};

} // namespace

std::string numberToText(const Number& number) {
    return std::visit([](auto value) { return Utils::ConvertToGenericString::convertToGenericString(value); },
                      number);
}

DataFormat::Json numberToJson(const Number& number) {
    return std::visit([](auto value) { return DataFormat::Json(value); }, number);
}

ProfileSettings listSettings(const Profile& profile) {
    Profile copy = profile;
    ProfileList list;
    list.add(copy);
    ProfileSettings settings;
    const SettingsRecorder recorder(settings);
    recorder.deserialize(recorder.serialize(list));
    return settings;
}

} // namespace norel::Desktop::PayloadProfiles

#include "reports/ProfileMembers.h"

#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "reports/ProfileParameters.h"
#include "terminal/Text.h"

#include <charconv>

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;

/// Records every member while a profile is read, so that the list comes from the document's own tables.
class MemberRecorder : public JsonProfileListSerializer {
public:
    explicit MemberRecorder(std::vector<ProfileMember>& target) : members(target) {}

    using JsonProfileListSerializer::fromJson;

    void fromJson(const JsonPath& path, Parameter<int>::Builder& builder, Options options) const override {
        readParameter(path, builder, options);
    }
    void fromJson(const JsonPath& path, Parameter<unsigned int>::Builder& builder,
                  Options options) const override {
        readParameter(path, builder, options);
    }
    void fromJson(const JsonPath& path, Parameter<double>::Builder& builder, Options options) const override {
        readParameter(path, builder, options);
    }

    void fromJson(const JsonPath& path, int& number, Options options) const override {
        readNumber(path, number, options);
    }
    void fromJson(const JsonPath& path, unsigned int& number, Options options) const override {
        readNumber(path, number, options);
    }
    void fromJson(const JsonPath& path, double& number, Options options) const override {
        readNumber(path, number, options);
    }

    void fromJson(const JsonPath& path, std::map<std::string, int>& numbers, Options options) const override {
        readNumbers(path, numbers, options);
    }
    void fromJson(const JsonPath& path, std::map<std::string, unsigned int>& numbers,
                  Options options) const override {
        readNumbers(path, numbers, options);
    }
    void fromJson(const JsonPath& path, std::map<std::string, double>& numbers,
                  Options options) const override {
        readNumbers(path, numbers, options);
    }

    void fromJson(const JsonPath& path, bool& flag, Options options) const override {
        JsonProfileListSerializer::fromJson(path, flag, options);
        record(path.getPath(), path.getValue(), flag ? "true" : "false");
    }
    void fromJson(const JsonPath& path, std::string& text, Options options) const override {
        JsonProfileListSerializer::fromJson(path, text, options);
        record(path.getPath(), path.getValue(), inQuotes(text));
    }
    void fromJson(const JsonPath& path, std::vector<std::string>& texts, Options options) const override {
        JsonProfileListSerializer::fromJson(path, texts, options);
        std::string list;
        for (const std::string& text : texts)
            list += (list.empty() ? "" : ", ") + inQuotes(text);
        record(path.getPath(), path.getValue(), '[' + list + ']');
    }

private:
    void record(const MemberPath& path, const Json& value, const std::string& text) const {
        members.push_back({path, value, text, std::nullopt, false});
    }

    template <typename Number>
    void readNumber(const JsonPath& path, Number& number, Options options) const {
        JsonProfileListSerializer::fromJson(path, number, options);
        record(path.getPath(), path.getValue(), numberToText(number));
    }

    template <typename Number>
    void readNumbers(const JsonPath& path, std::map<std::string, Number>& numbers, Options options) const {
        JsonProfileListSerializer::fromJson(path, numbers, options);
        MemberPath member = path.getPath();
        member.emplace_back();
        for (const auto& [name, number] : numbers) {
            member.back() = name;
            record(member, Json(number), numberToText(number));
        }
    }

    template <typename Builder>
    void readParameter(const JsonPath& path, Builder& builder, Options options) const {
        const std::size_t first = members.size();
        JsonProfileListSerializer::fromJson(path, builder, options);
        for (std::size_t i = first; i < members.size(); ++i) {
            ProfileMember& member = members[i];
            const bool isNumber = !member.text.starts_with('"');
            if (isNumber && !builder.unit.empty())
                member.unit = builder.unit;
            member.isParameterValue =
                member.path.size() == path.getPath().size() + 1 && member.path.back() == PARAMETER_VALUE;
        }
    }

    std::vector<ProfileMember>& members;
};

std::optional<Json> findElement(const Json& array, unsigned int index) {
    try {
        const auto end = array.end();
        for (auto element = array.begin(); element != end; ++element, --index)
            if (index == 0)
                return *element;
    } catch (const Json::IncompatibleTypeError&) { // not an array
    }
    return std::nullopt;
}

} // namespace

std::vector<ProfileMember> listMembers(const Profile& profile) {
    std::vector<ProfileMember> members;
    const MemberRecorder recorder(members);
    Profile::Builder builder;
    recorder.fromJson(JsonProfileListSerializer::JsonPath(makeDocument(profile)), builder, {});
    return members;
}

std::string toText(const MemberPath& path) {
    std::string text;
    for (const std::string& step : path)
        text += (text.empty() ? "" : ".") + step;
    return text;
}

std::string describePath(const ProfileMember& member) {
    MemberPath path = member.path;
    if (member.isParameterValue)
        path.pop_back();
    return toText(path);
}

Json makeDocument(const Profile& profile) { return JsonProfileListSerializer().toJson(profile, {}); }

std::optional<Json> findValue(const Json& document, const MemberPath& path) {
    std::optional<Json> value = document;
    for (const std::string& step : path) {
        const auto index = parseIndex(step);
        if (value->contains(step))
            value = std::as_const(*value).getValue(step);
        else
            value = index ? findElement(*value, *index) : std::nullopt;
        if (!value)
            return std::nullopt;
    }
    return value;
}

std::optional<Json> withValue(const Json& document, const MemberPath& path, const Json& value,
                              std::size_t depth) {
    if (depth == path.size())
        return value;
    const std::string& step = path[depth];
    const auto index = parseIndex(step);
    const auto old = findValue(document, {step});
    if (!old && (index || depth + 1 < path.size()))
        return std::nullopt;
    const auto replaced = withValue(old.value_or(Json()), path, value, depth + 1);
    if (!replaced)
        return std::nullopt;
    try {
        if (document.contains(step) || !index) {
            Json changed = document;
            changed.set(step, *replaced);
            return changed;
        }
        std::vector<Json> elements;
        for (const Json& element : document)
            elements.push_back(elements.size() == *index ? *replaced : element);
        return Json(std::move(elements));
    } catch (const Json::JsonError&) { // no object
        return std::nullopt;
    }
}

std::optional<unsigned int> parseIndex(const std::string& step) {
    unsigned int index = 0;
    if (step.size() < 3 || step.front() != '[' || step.back() != ']')
        return std::nullopt;
    const char* const end = step.data() + step.size() - 1;
    const auto [last, error] = std::from_chars(step.data() + 1, end, index);
    return error == std::errc() && last == end ? std::optional(index) : std::nullopt;
}

} // namespace norel::Desktop::PayloadProfiles

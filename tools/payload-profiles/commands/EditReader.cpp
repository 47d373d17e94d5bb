#include "commands/EditReader.h"

#include "norel/Desktop/Domain/Payloads/ProfileListSchema.h"
#include "reports/ProfileParameters.h"
#include "terminal/Text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace norel::Desktop::PayloadProfiles {
namespace {

using namespace Domain::Payloads;
using DataFormat::Json;

/// The schema of the member at a path of a profile, which must exist.
Json findSchema(const MemberPath& path) {
    const Json root = Json::fromString(makeProfileListSchema());
    const auto resolved = [&root](Json schema) {
        const Json& node = schema;
        if (node.contains("anyOf"))
            schema = *node.getValue("anyOf").begin();
        if (node.contains("$ref")) {
            const std::string reference = node.get("$ref");
            schema = root.getValue("$defs").getValue(reference.substr(reference.rfind('/') + 1));
        }
        return schema;
    };
    Json schema = root.getValue("items");
    for (const std::string& step : path) {
        const Json parent = resolved(schema);
        if (parent.contains("items"))
            schema = parent.getValue("items");
        else if (parent.contains("additionalProperties"))
            schema = parent.getValue("additionalProperties");
        else
            schema = parent.getValue("properties").getValue(step);
    }
    return resolved(schema);
}

/// "; allowed: "a", "b"" for a member that allows only some texts.
std::string describeChoices(const MemberPath& path) {
    const Json schema = findSchema(path);
    std::string choices;
    if (schema.contains("enum"))
        for (const std::string& choice : schema.getValue("enum").as<std::vector<std::string>>())
            choices += (choices.empty() ? "; allowed: " : ", ") + inQuotes(choice);
    return choices;
}

template <typename Number>
Number parse(const std::string& text, const Number& /*old*/) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    const bool isWhole = error == std::errc() && last == end;
    if constexpr (std::is_integral_v<Number>) {
        using Limits = std::numeric_limits<Number>;
        if (!isWhole)
            throw std::runtime_error("the value must be a whole number from " + numberToText(Limits::min()) +
                                     " to " + numberToText(Limits::max()));
    } else if (!isWhole || !std::isfinite(number)) {
        throw std::runtime_error("the value must be a number, such as 0.5 or 1e-05");
    }
    return number;
}

bool parse(const std::string& text, bool /*old*/) {
    if (text != "true" && text != "false")
        throw std::runtime_error("the value must be true or false");
    return text == "true";
}

std::string parse(const std::string& text, const std::string& /*old*/) { return text; }

std::vector<std::string> parse(const std::string& text, const std::vector<std::string>& /*old*/) {
    try {
        return Json::fromString(text).as<std::vector<std::string>>();
    } catch (const Json::JsonError&) {
        throw std::runtime_error(R"(the value must be a JSON list of texts, such as ["field", "forest"])");
    }
}

template <typename Leaf>
Leaf parseFor(const MemberPath& path, const Assignment& assignment, const Leaf& old) {
    try {
        return parse(assignment.value, old);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(describeRefusal(path, assignment, error.what()));
    }
}

bool isBelow(const MemberPath& path, const MemberPath& parent) {
    return path.size() > parent.size() && std::equal(parent.begin(), parent.end(), path.begin());
}

} // namespace

bool isMember(const MemberPath& path) {
    try {
        findSchema(path);
        return true;
    } catch (const Json::JsonError&) { // no such key
        return false;
    }
}

std::string describeRefusal(const MemberPath& path, const Assignment& assignment, const std::string& reason) {
    return printable(assignment.path) + '=' + printable(assignment.value) + ": " + reason +
           describeChoices(path);
}

const Assignment* EditReader::findUnused() const {
    for (const auto& [path, assignment] : edits)
        if (!used.contains(path))
            return &assignment;
    return nullptr;
}

const Assignment* EditReader::take(const MemberPath& path) const {
    const auto edit = edits.find(path);
    if (edit == edits.end())
        return nullptr;
    used.insert(path);
    return &edit->second;
}

template <typename Leaf>
void EditReader::readLeaf(const JsonPath& path, Leaf& target, Options options) const {
    if (const Assignment* assignment = take(path.getPath()))
        target = parseFor(path.getPath(), *assignment, target);
    else
        JsonProfileListSerializer::fromJson(path, target, options);
}

template <typename Number>
void EditReader::readPresets(const JsonPath& path, std::map<std::string, Number>& target,
                             Options options) const {
    JsonProfileListSerializer::fromJson(path, target, options);
    for (const auto& [preset, assignment] : edits)
        if (isBelow(preset, path.getPath()) && preset.size() == path.getPath().size() + 1)
            target[preset.back()] = parseFor(preset, *take(preset), Number());
}

template <typename Builder>
void EditReader::readParameter(const JsonPath& path, Builder& builder, Options options) const {
    JsonProfileListSerializer::fromJson(path, builder, options);
    const auto first = edits.upper_bound(path.getPath());
    if (first == edits.end() || !isBelow(first->first, path.getPath()))
        return;
    try {
        builder.build();
    } catch (const std::invalid_argument& error) {
        const std::string rule = error.what();
        const bool endsWithRange = rule.ends_with(')');
        throw std::runtime_error(
            describeRefusal(first->first, first->second,
                            rule + (endsWithRange && !builder.unit.empty() ? ' ' + builder.unit : "")));
    }
}

void EditReader::fromJson(const JsonPath& path, Parameter<int>::Builder& builder, Options options) const {
    readParameter(path, builder, options);
}
void EditReader::fromJson(const JsonPath& path, Parameter<unsigned int>::Builder& builder,
                          Options options) const {
    readParameter(path, builder, options);
}
void EditReader::fromJson(const JsonPath& path, Parameter<double>::Builder& builder, Options options) const {
    readParameter(path, builder, options);
}
void EditReader::fromJson(const JsonPath& path, std::map<std::string, int>& target, Options options) const {
    readPresets(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, std::map<std::string, unsigned int>& target,
                          Options options) const {
    readPresets(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, std::map<std::string, double>& target,
                          Options options) const {
    readPresets(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, std::vector<std::string>& target, Options options) const {
    readLeaf(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, std::string& target, Options options) const {
    readLeaf(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, bool& target, Options options) const {
    readLeaf(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, int& target, Options options) const {
    readLeaf(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, unsigned int& target, Options options) const {
    readLeaf(path, target, options);
}
void EditReader::fromJson(const JsonPath& path, double& target, Options options) const {
    readLeaf(path, target, options);
}

} // namespace norel::Desktop::PayloadProfiles

#include "DocumentValidation.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace norel::Desktop::Domain::Payloads {
namespace {

/// Whether the text of a number or boolean stands for exactly this number.
bool isExactly(std::int64_t number, std::string_view text) {
    if (text == std::to_string(number))
        return true;
    try {
        return DataFormat::Json::fromString(std::string(text)).as<double>() == static_cast<double>(number);
    } catch (const DataFormat::Json::IncompatibleTypeError&) { // true or false
        return false;
    }
}

} // namespace

bool DocumentValidator::isChecked(const JsonPath& object, const std::string& key) const {
    return std::ranges::none_of(uncheckedSections, [&](const Section& section) {
        if (section.back() != key)
            return false;
        const auto& steps = object.getPath(); // the index of the profile, then keys
        return steps.size() == section.size() && std::equal(steps.begin() + 1, steps.end(), section.begin());
    });
}

void DocumentValidator::checkIsArray(const JsonPath& path) const {
    if (path.getPath().empty())
        path.getValue().begin(); // the serializer reports the error of the document as a whole without a path
    else
        withPath(path, [&] { path.getValue().begin(); });
}

void DocumentValidator::checkId(const Profile::Builder& builder, RuleCheck& check) {
    if (!check.isKnown(&builder.id))
        return;
    const std::string id = "the id " + std::to_string(builder.id);
    if (builder.id == Profile::ID_IS_UNASSIGNED)
        check.fail(&builder.id, std::invalid_argument(id + " requests a new id"));
    else if (!ids.insert(builder.id).second)
        check.fail(&builder.id,
                   std::invalid_argument(id + " is taken by an earlier profile; reading assigns another id"));
}

void DocumentValidator::warnOfMember(Kind kind, const JsonPath& object, const JsonItems& member) {
    const bool isUnknown = kind == Kind::UnknownMember;
    if (isUnknown && member.getValueText() == "null")
        return;
    const std::string key = shortened(member.getKey());
    addWarning(kind, ChildPath::make(object, key), member.getKeyText(),
               isUnknown ? "unknown member; it is ignored, and lost when the document is written"
                         : "repeated member; only the last one is read");
}

void DocumentValidator::warnOfNumber(const JsonPath& path, std::string_view text, std::int64_t number) {
    if (isExactly(number, text))
        return;
    const bool isBoolean = text.front() == 't' || text.front() == 'f';
    addWarning(isBoolean ? Kind::WrongKind : Kind::NumberOutOfRange, path, text,
               shortened(std::string(text)) + " is read as " + std::to_string(number));
}

void DocumentValidator::addError(Kind kind, const JsonPath& path, std::string_view text,
                                 std::string message) {
    const std::string place = path.getPathString();
    if (const std::string suffix = " at " + place; message.ends_with(suffix))
        message.resize(message.size() - suffix.size());
    findings.add(text, {Severity::Error, kind, place, 1, 1, std::move(message), {}});
}

void DocumentValidator::addViolation(Severity severity, Kind kind, const JsonPath& path,
                                     std::string_view text, const RuleCheck::Violation& violation) {
    const auto& choices = violation.choices;
    findings.add(text, {severity,
                        kind,
                        path.getPathString(),
                        1,
                        1,
                        violation.message,
                        {{}, {}, {choices.begin(), choices.end()}}});
}

void DocumentValidator::addWarning(Kind kind, const JsonPath& path, std::string_view text,
                                   const std::string& message) {
    findings.add(text, {Severity::Warning, kind, path.getPathString(), 1, 1, message, {}});
}

} // namespace norel::Desktop::Domain::Payloads

#include "DocumentFindings.h"

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

void DocumentFindings::warnOfMember(Kind kind, const JsonPath& object, const JsonItems& member) {
    const bool isUnknown = kind == Kind::UnknownMember;
    if (isUnknown && member.getValueText() == "null")
        return;
    const std::string key = shortened(member.getKey());
    addWarning(kind, ChildPath::make(object, key), member.getKeyText(),
               isUnknown ? "unknown member; it is ignored, and lost when the document is written"
                         : "repeated member; only the last one is read");
}

void DocumentFindings::warnOfNumber(const JsonPath& path, std::string_view text, std::int64_t number) {
    if (isExactly(number, text))
        return;
    const bool isBoolean = text.front() == 't' || text.front() == 'f';
    addWarning(isBoolean ? Kind::WrongKind : Kind::NumberOutOfRange, path, text,
               shortened(std::string(text)) + " is read as " + std::to_string(number));
}

void DocumentFindings::addError(Kind kind, const JsonPath& path, std::string_view text, std::string message) {
    const std::string place = path.getPathString();
    if (const std::string suffix = " at " + place; message.ends_with(suffix))
        message.resize(message.size() - suffix.size());
    list.add(text, {Severity::Error, kind, place, 1, 1, std::move(message), {}});
}

void DocumentFindings::addViolation(Severity severity, Kind kind, const JsonPath& path, std::string_view text,
                                    const RuleCheck::Violation& violation) {
    const auto& choices = violation.choices;
    list.add(text, {severity,
                    kind,
                    path.getPathString(),
                    1,
                    1,
                    violation.message,
                    {{}, {}, {choices.begin(), choices.end()}}});
}

void DocumentFindings::addWarning(Kind kind, const JsonPath& path, std::string_view text,
                                  const std::string& message) {
    list.add(text, {Severity::Warning, kind, path.getPathString(), 1, 1, message, {}});
}

} // namespace norel::Desktop::Domain::Payloads

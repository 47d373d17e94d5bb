#include "reports/ValidationReport.h"

#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

using DataFormat::Json;
using Constraints = ProfileListValidator::Constraints;
using Finding = ProfileListValidator::Finding;
using Kind = ProfileListValidator::Kind;
using Severity = ProfileListValidator::Severity;

const char* nameOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

const char* nameOf(Kind kind) {
    switch (kind) {
    case Kind::NotJson:
        return "not_json";
    case Kind::Missing:
        return "missing";
    case Kind::WrongKind:
        return "wrong_kind";
    case Kind::RuleBroken:
        return "rule_broken";
    case Kind::NumberOutOfRange:
        return "number_out_of_range";
    case Kind::UnknownMember:
        return "unknown_member";
    case Kind::RepeatedMember:
        return "repeated_member";
    case Kind::Id:
        return "id";
    }
    return "";
}

/// Says how to upgrade the document.
std::string describeVersion(const std::string& file, const Validation& validation) {
    const std::string advice =
        describeOldVersion(file == STANDARD_INPUT ? "FILE" : file, *validation.oldVersion);
    return advice + (validation.count(Severity::Error) > 0 ? ", after fixing the errors below" : "");
}

std::string explain(const Finding& finding) {
    std::string text = finding.path.empty() ? finding.message : finding.path + ": " + finding.message;
    std::string choices;
    for (const std::string& choice : finding.constraints.choices)
        choices += (choices.empty() ? "; allowed: \"" : ", \"") + choice + '"';
    return text + choices;
}

Json toJson(const Finding& finding) {
    Json object;
    object.set("severity", Json(nameOf(finding.severity)));
    object.set("kind", Json(nameOf(finding.kind)));
    object.set("path", Json(finding.path));
    object.set("line", Json(static_cast<unsigned int>(finding.line)));
    object.set("column", Json(static_cast<unsigned int>(finding.column)));
    object.set("message", Json(finding.message));
    const Constraints& constraints = finding.constraints;
    if (constraints.range) {
        object.set("minimum", Json(constraints.range->first));
        object.set("maximum", Json(constraints.range->second));
    }
    if (constraints.unit)
        object.set("unit", Json(*constraints.unit));
    if (!constraints.choices.empty())
        object.set("choices", Json(constraints.choices));
    return object;
}

} // namespace

std::string makeTextReport(const std::string& file, const Validation& validation) {
    const std::string name = printable(file);
    std::string text;
    if (validation.oldVersion)
        text = name + ":1:1: error: " + describeVersion(file, validation) + '\n';
    for (const Finding& finding : validation.result.findings)
        text += name + ':' + std::to_string(finding.line) + ':' + std::to_string(finding.column) + ": " +
                nameOf(finding.severity) + ": " + printable(explain(finding)) + '\n';
    if (validation.result.isCut)
        text += name + ": there is more; only the first " +
                std::to_string(ProfileListValidator::MAXIMUM_FINDINGS) + " findings are shown\n";
    return text;
}

DataFormat::Json makeJsonReport(const std::string& file, const Validation& validation) {
    std::vector<Json> findings;
    for (const Finding& finding : validation.result.findings)
        findings.push_back(toJson(finding));
    Json object;
    object.set("file", Json(file));
    if (validation.oldVersion) {
        object.set("old_version", Json(*validation.oldVersion));
        object.set("message", Json(describeVersion(file, validation)));
    }
    object.set("findings", Json(std::move(findings)));
    object.set("is_cut", Json(validation.result.isCut));
    return object;
}

} // namespace norel::Desktop::PayloadProfiles

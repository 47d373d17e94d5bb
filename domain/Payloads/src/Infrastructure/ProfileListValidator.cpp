#include "norel/Desktop/Domain/Payloads/ProfileListValidator.h"

#include "DocumentText.h"
#include "DocumentValidation.h"

namespace norel::Desktop::Domain::Payloads {
namespace {

/// What follows where the text stops being JSON; the whole text where the host cannot tell.
template <typename Json>
std::string_view findSyntaxError(std::string_view text) {
    if constexpr (HasTextReader<Json>) {
        typename Json::Reader reader(text.substr(JsonItems::lengthOfByteOrderMark(text)));
        try {
            reader.skip();
            reader.end();
        } catch (const typename Json::JsonError&) {
            return reader.getRest();
        }
    }
    return text;
}

/// Whether the text is JSON.
bool checkSyntax(const std::string& text, FindingList& findings) {
    try {
        DataFormat::Json::fromString(text);
        return true;
    } catch (const DataFormat::Json::JsonError& error) {
        findings.add(findSyntaxError<DataFormat::Json>(text), {ProfileListValidator::Severity::Error,
                                                               ProfileListValidator::Kind::NotJson,
                                                               "",
                                                               1,
                                                               1,
                                                               error.what(),
                                                               {}});
        return false;
    }
}

/// The sections that upgrading a document of this version replaces.
std::vector<DocumentVersions::Section> listReplaced(unsigned int version) {
    std::vector<DocumentVersions::Section> replaced;
    for (; version < DocumentVersions::getCurrent(); ++version)
        for (DocumentVersions::Section& section : DocumentVersions::getSections(version + 1))
            replaced.push_back(std::move(section));
    return replaced;
}

} // namespace

ProfileListValidator::Result ProfileListValidator::validate(const std::string& text, const Progress& progress,
                                                            unsigned int version) const {
    FindingList findings(text);
    if (!text.empty() && checkSyntax(text, findings))
        DocumentValidator(findings, listReplaced(version))
            .validate(JsonItems::findValue(text), [&](std::string_view profile) {
                if (progress)
                    progress(static_cast<std::size_t>(profile.data() + profile.size() - text.data()));
            });
    return findings.takeResult();
}

} // namespace norel::Desktop::Domain::Payloads

#include "Fuzzing.h"
#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <algorithm>
#include <optional>

using namespace norel::Desktop::Domain::Payloads;
using norel::Fuzzing::require;

namespace {

using Finding = ProfileListValidator::Finding;

/// The message of the serializer; empty when it reads the text.
std::optional<std::string> read(const std::string& text, ProfileList& list) {
    try {
        list = JsonProfileListSerializer().deserialize(text);
        return std::nullopt;
    } catch (const std::invalid_argument& error) { // a rule of the model
        return error.what();
    } catch (const std::runtime_error& error) { // ParsingError, or a rule of Georeferencing or Profile
        return error.what();
    }
}

bool isAbout(const Finding& finding, const std::string& message) {
    return message == finding.message || message == finding.message + " at " + finding.path;
}

/// Validation finds the error of the serializer, and none in a text that the serializer reads.
void requireFindings(const std::string& text, const std::optional<std::string>& error) {
    const auto result = ProfileListValidator().validate(text);
    const auto isError = [&](const Finding& finding) {
        return finding.severity == ProfileListValidator::Severity::Error &&
               (!error || result.isCut || isAbout(finding, *error));
    };
    require(std::ranges::any_of(result.findings, isError) == error.has_value(),
            "validation finds the error of the serializer");
}

} // namespace

/// A list that was read is written as a document that reads back to an equal list.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = norel::Fuzzing::toText(data, size);
    ProfileList list;
    const std::optional<std::string> error = read(text, list);
    requireFindings(text, error);
    if (error)
        return 0;
    const JsonProfileListSerializer serializer;
    const std::string written = serializer.serialize(list);
    const ProfileList again = serializer.deserialize(written);
    require(again == list, "a written list reads back");
    require(serializer.serialize(again) == written, "a list is always written the same");
    return 0;
}

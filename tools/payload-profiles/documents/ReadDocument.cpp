#include "documents/ReadDocument.h"

#include "documents/Validation.h"
#include "terminal/Text.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <vector>

namespace norel::Desktop::PayloadProfiles {
namespace {

using Finding = ProfileListValidator::Finding;

std::string inLine(const Finding& finding) { return " (line " + std::to_string(finding.line) + ')'; }

} // namespace

Domain::Payloads::ProfileList readDocument(const Domain::Payloads::ProfileListSerializer& serializer,
                                           const std::string& text) {
    try {
        return serializer.deserialize(text);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        const auto finding = findError(text, error.what());
        if (!finding || finding->path.empty())
            throw;
        throw std::runtime_error(finding->message + " at " + finding->path + inLine(*finding));
    }
}

void requireNothingDropped(const std::string& text) {
    constexpr std::size_t maximumNumber = 20;
    const std::vector<Finding> members = findDroppedMembers(text);
    if (members.empty())
        return;
    std::string names;
    for (std::size_t i = 0; i < std::min(members.size(), maximumNumber); ++i)
        names += (i > 0 ? ", " : "") + members[i].path + inLine(members[i]);
    if (members.size() > maximumNumber)
        names += " and " + counted(members.size() - maximumNumber, "other");
    throw std::runtime_error("writing this document would drop members that are not known: " + names +
                             "; --drop-unknown drops them");
}

} // namespace norel::Desktop::PayloadProfiles

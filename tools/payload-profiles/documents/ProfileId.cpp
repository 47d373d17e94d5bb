#include "documents/ProfileId.h"

#include "documents/Failure.h"
#include "terminal/Text.h"

#include <charconv>

namespace norel::Desktop::PayloadProfiles {

std::string checkId(const std::string& text) {
    unsigned int id = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, id);
    return error == std::errc() && last == end ? "" : inQuotes(text) + " is not a profile id";
}

unsigned int parseId(const std::string& text) {
    unsigned int id = 0;
    std::from_chars(text.data(), text.data() + text.size(), id);
    return id;
}

void requireProfiles(const Domain::Payloads::ProfileList& list, const std::set<unsigned int>& ids,
                     const std::string& subject, const std::string& consequence) {
    std::string missing;
    for (const unsigned int id : ids)
        if (!list.existById(id))
            missing += (missing.empty() ? "" : ", ") + std::to_string(id);
    if (!missing.empty())
        throw Failure(subject, "there is no profile " + missing + consequence);
}

std::string describe(const Domain::Payloads::Profile& profile) {
    return std::to_string(profile.getId()) + ' ' + inQuotes(profile.getName());
}

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include "norel/Desktop/DateTime/DateTime.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"

#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// A profile of a page, and the profile that it is compared with.
struct ReportedProfile {
    Domain::Payloads::Profile profile;
    std::optional<Domain::Payloads::Profile> reference;
};

/// What a page shows. The names are shown as they are.
struct HtmlReport {
    std::string sourceName;
    std::optional<std::string> referenceName; ///< empty when nothing is compared
    DateTime::DateTime made;
    std::vector<ReportedProfile> profiles;
};

/// A page that shows the profiles in a browser, and that loads nothing from elsewhere.
std::string makeHtmlReport(const HtmlReport& report);

} // namespace norel::Desktop::PayloadProfiles

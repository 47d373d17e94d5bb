#pragma once

#include "documents/DocumentVersion.h"
#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Whether a report describes what was done or, in a dry run, what would be done.
enum class Tense { Done, WouldBe };

/// What a merge did with each profile of the source, a line each, and the totals. `before` and `after` are
/// the lists of the file.
std::string makeMergeReport(const Domain::Payloads::ProfileList& source,
                            const Domain::Payloads::ProfileList& before,
                            const Domain::Payloads::ProfileList& after, Tense tense);

/// What the upgrade step to `version` does to each section of the document `text`.
std::string makeStepReport(const std::string& text, unsigned int version, Tense tense);

} // namespace norel::Desktop::PayloadProfiles

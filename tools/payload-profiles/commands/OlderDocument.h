#pragma once

#include "documents/Source.h"
#include "reports/DifferenceReport.h"

namespace norel::Desktop::PayloadProfiles {

/// The profiles of a source. A file of an older version is read too, with what it lacks left out of the
/// comparison. Throws Failure.
std::vector<ComparedProfile> readForComparison(const DocumentAccess& documents, const Source& source);

} // namespace norel::Desktop::PayloadProfiles

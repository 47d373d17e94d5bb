#pragma once

#include "commands/Context.h"
#include "reports/CommandSyntax.h"

#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// What the last word of an incomplete command line may become: a line for each candidate, the word, a tab
/// and its description; and the line ":files" where file names are possible. Of a last word "--option=value"
/// they concern the value alone. `words` do not include the application's name. Errors only shorten the
/// answer.
std::string completeWords(const CommandSyntax& application, const std::vector<std::string>& words,
                          const DocumentAccess& documents);

} // namespace norel::Desktop::PayloadProfiles

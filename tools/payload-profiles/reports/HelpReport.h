#pragma once

#include "reports/CommandSyntax.h"

#include <string>
#include <string_view>

namespace norel::Desktop::PayloadProfiles {

/// The help of the application or of a command, 80 columns wide.
std::string makeHelp(const CommandSyntax& syntax);

/// The help of the application without its options and notes.
std::string makeShortHelp(const CommandSyntax& application);

/// The manual page of the application and all its commands, for man(7).
std::string makeManual(const CommandSyntax& application, const std::string& version);

/// Says that there is no such command, and which one was probably meant.
std::string describeUnknownCommand(const CommandSyntax& application, std::string_view word);

/// Says that a command has no such option, and which one was probably meant.
std::string describeUnknownOption(const CommandSyntax& command, std::string_view word);

} // namespace norel::Desktop::PayloadProfiles

#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {

std::string printable(std::string_view text) { return Text::printableText(text); }

std::string inQuotes(std::string_view text) { return '"' + printable(text) + '"'; }

std::string counted(std::size_t number, const std::string& noun) {
    return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

} // namespace norel::Desktop::PayloadProfiles

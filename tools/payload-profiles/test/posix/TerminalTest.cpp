#include "RunApplication.h"

#include <algorithm>
#include <regex>
#include <sstream>

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

/// The columns of the widest line of a UTF-8 text.
std::size_t findWidth(const std::string& text) {
    const auto beginsCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    std::ptrdiff_t width = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        width = std::max(width, std::count_if(line.begin(), line.end(), beginsCharacter));
    return static_cast<std::size_t>(width);
}

class TerminalTest : public ApplicationTest {
protected:
    /// What the application writes to a terminal of so many columns.
    std::string runOnTerminal(const std::string& command, std::size_t columns,
                              const std::string& variables) const {
        return runWell(command + "\" /dev/null </dev/null",
                       variables + " script -qec \"stty cols " + std::to_string(columns) + ';');
    }
};

TEST_F(TerminalTest, FitsItsOutputToTheTerminalAlone) {
    struct Case {
        const char* command;
        std::size_t columns;
        const char* variables;
        bool isColoured;
    };
    const Case cases[] = {
        {"list factory", 60, "TERM=xterm", true},
        {"list factory", 80, "TERM=xterm NO_COLOR=1", false},
        {"list factory", 120, "TERM=xterm NO_COLOR=", true},
        {"list factory", 120, "TERM=dumb", false},
        {"show factory 88", 110, "TERM=xterm", true},
        {"show factory 88", 150, "TERM=xterm", true},
        {"show factory 88", 150, "TERM=xterm NO_COLOR=1", false},
    };
    for (const auto& [command, columns, variables, isColoured] : cases) {
        SCOPED_TRACE(std::string(command) + ", " + std::to_string(columns) + " columns, " + variables);
        const std::string shown = runOnTerminal(command, columns, variables);
        const std::string text = std::regex_replace(shown, std::regex("\x1b\\[[0-9]+m|\r"), "");
        const std::string piped = runWell(command, variables);
        EXPECT_EQ(shown.find('\x1b') != std::string::npos, isColoured);
        EXPECT_EQ(text.find('\x1b'), std::string::npos);
        EXPECT_EQ(piped.find('\x1b'), std::string::npos);
        EXPECT_LE(findWidth(text), columns);
        EXPECT_EQ(text == piped, findWidth(piped) <= columns);
        EXPECT_EQ(text.find("SERIAL") == std::string::npos &&
                      text.find("Korvane Gamma Reach") != std::string::npos,
                  std::string(command).starts_with("list") && columns == 80);
    }
}

} // namespace
} // namespace norel::Desktop::PayloadProfiles::Test

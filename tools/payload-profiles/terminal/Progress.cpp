#include "terminal/Progress.h"

#include "terminal/Terminal.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {

Progress::~Progress() {
    if (isShown)
        Terminal::writeMessage("\r\x1b[K");
}

void Progress::show(const std::string& line) {
    const auto width = Terminal::getMessageWidth();
    if (!width || std::chrono::steady_clock::now() - start < std::chrono::seconds(1))
        return;
    isShown = true;
    Terminal::writeMessage("\r\x1b[K" + shortened(line, *width));
}

} // namespace norel::Desktop::PayloadProfiles

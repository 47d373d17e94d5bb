#include "terminal/Progress.h"

#include "terminal/Terminal.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {

Progress::~Progress() {
    if (isShown)
        Terminal::writeMessage("\r\x1b[K");
}

void Progress::show(const std::string& line, bool isUrgent) {
    const bool isEarly = std::chrono::steady_clock::now() - start < std::chrono::seconds(1);
    const auto width = Terminal::getMessageWidth();
    if (!width || (isEarly && !isUrgent))
        return;
    isShown = true;
    Terminal::writeMessage("\r\x1b[K" + shortened(line, *width));
}

} // namespace norel::Desktop::PayloadProfiles

#include "terminal/Console.h"

#include "terminal/Terminal.h"
#include "terminal/Text.h"

namespace norel::Desktop::PayloadProfiles {
namespace {

template <typename Write>
void withOutputFailure(const Write& write) {
    try {
        write();
    } catch (const std::system_error& error) {
        throw Console::OutputFailure(error.code());
    }
}

} // namespace

void Console::showMessage(const std::string& subject, const std::string& text) {
    flush();
    const std::string prefix = subject.empty() ? "" : printable(subject) + ": ";
    Terminal::writeMessage("payload-profiles: " + prefix + printable(text) + '\n');
}

void Console::finish() {
    if (output.empty())
        return;
    flush();
    withOutputFailure([] { Terminal::closeOutput(); });
}

void Console::flush() {
    const std::string text = std::move(output);
    output.clear();
    withOutputFailure([&] { Terminal::writeOutput(text); });
}

} // namespace norel::Desktop::PayloadProfiles

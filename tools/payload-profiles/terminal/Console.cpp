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

void Console::conceal(const std::string& text, const std::string& replacement) {
    if (text != replacement)
        concealed.emplace_back(text, replacement);
}

void Console::showMessage(const std::string& subject, const std::string& text) {
    constexpr std::size_t maximumBytes = 10000; // more than the path of a file and an error about it
    flush();
    std::string message = subject.empty() ? text : subject + ": " + text;
    for (const auto& [secret, replacement] : concealed)
        for (std::size_t at = 0; (at = message.find(secret, at)) != std::string::npos;
             at += replacement.size())
            message.replace(at, secret.size(), replacement);
    Terminal::writeMessage("payload-profiles: " + Text::printableText(message, maximumBytes) + '\n');
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

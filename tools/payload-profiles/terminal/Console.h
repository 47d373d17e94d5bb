#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace norel::Desktop::PayloadProfiles {

/// What the user gets to see: output, held back until it is whole, and messages.
class Console {
public:
    /// The standard output cannot be written.
    struct OutputFailure : std::system_error {
        using std::system_error::system_error;
    };

    void print(std::string_view text) { output += text; }

    /// Forgets what was printed and not yet written.
    void discard() { output.clear(); }

    /// "payload-profiles: SUBJECT: text", after the output so far; both texts are made printable. An empty
    /// subject is left out. Throws OutputFailure.
    void showMessage(const std::string& subject, const std::string& text);

    /// Writes what was printed and ends the output. Throws OutputFailure.
    void finish();

private:
    void flush();

    std::string output;
};

} // namespace norel::Desktop::PayloadProfiles

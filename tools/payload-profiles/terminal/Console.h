#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// What the user sees: output, buffered until it is complete, and messages.
class Console {
public:
    /// The standard output cannot be written.
    struct OutputFailure : std::system_error {
        using std::system_error::system_error;
    };

    void print(std::string_view text) { output += text; }

    /// Drops what was printed but not yet written.
    void discard() { output.clear(); }

    /// Shows `replacement` wherever `text` occurs in a later message.
    void conceal(const std::string& text, const std::string& replacement);

    /// Writes "payload-profiles: SUBJECT: text" after the output so far; both texts are made printable and,
    /// together, cut to 10000 bytes. An empty subject is left out. Throws OutputFailure.
    void showMessage(const std::string& subject, const std::string& text);

    /// Writes what was printed and closes the output. Throws OutputFailure.
    void finish();

private:
    void flush();

    std::string output;
    std::vector<std::pair<std::string, std::string>> concealed; ///< texts and their replacements
};

} // namespace norel::Desktop::PayloadProfiles

#pragma once

#include <stdexcept>
#include <string>

namespace norel::Desktop::Networking::Http {

/// Why a request fails; the client adds the address.
struct RequestError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An absolute address, taken apart.
struct Address {
    /// Throws RequestError for a text that is no absolute address; any scheme is taken.
    explicit Address(const std::string& text);

    bool isSameOriginAs(const Address& other) const;

    std::string scheme; ///< in lower case
    std::string host;
    std::string port; ///< the scheme's when the text names none
    std::string user; ///< decoded, as is the password
    std::string password;
    std::string url;  ///< without user and password
    std::string name; ///< for messages: the url without query and fragment, printable and bounded
};

} // namespace norel::Desktop::Networking::Http

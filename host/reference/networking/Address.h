#pragma once

#include <stdexcept>
#include <string>

namespace norel::Desktop::Networking::Http {

/// Why a request fails; the client adds the address.
struct RequestError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An absolute address and its parts.
struct Address {
    /// Throws RequestError for a text that is no absolute address. Any scheme is accepted.
    explicit Address(const std::string& text);

    bool isSameOriginAs(const Address& other) const;

    std::string scheme; ///< in lower case
    std::string host;
    std::string port; ///< the default of the scheme when the text names none
    std::string user; ///< decoded, as is the password
    std::string password;
    std::string url; ///< without user and password

    /// For messages; untrusted text: the url without query and fragment. If it still contains "@", which may
    /// follow a mistyped user part, it is a description instead.
    std::string displayUrl;
};

} // namespace norel::Desktop::Networking::Http

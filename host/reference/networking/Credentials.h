#pragma once

#include <string>

namespace norel::Desktop::Networking::Http {

/// What authorizes a request; meant for one scheme, host and port.
struct Credentials {
    std::string key;
    std::string user;
    std::string password;

    /// `text` without the key and the password, even where a peer repeats them (see Text::masked). Without a
    /// password the user is the secret.
    std::string masked(std::string text) const;
};

} // namespace norel::Desktop::Networking::Http

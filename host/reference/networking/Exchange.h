#pragma once

#include "Address.h"
#include "Credentials.h"
#include "norel/Desktop/Networking/Http/CurlHttpClient.h"

#include <curl/curl.h>

#include <chrono>
#include <cstddef>
#include <string>

namespace norel::Desktop::Networking::Http {

constexpr std::size_t MAXIMUM_SHOWN_BYTES = 300; ///< of an address or a reason in a message

/// What a request and those that its redirects lead to have in common.
struct RequestContext {
    const CurlHttpClient::Options& options;
    const Credentials& credentials; ///< in no message, whether sent or not
    std::chrono::steady_clock::time_point deadline;
};

struct Answer {
    HttpClient::Response response;
    std::string redirect; ///< the absolute address that the answer redirects to; empty when it does not
};

/// Sends one Get request over `connection` and receives its answer. Throws RequestError when there is no
/// complete answer within the limits, and what the progress function throws. The connection keeps no trace of
/// the request.
Answer exchange(CURL* connection, const Address& address, bool sendsCredentials,
                const RequestContext& context);

} // namespace norel::Desktop::Networking::Http

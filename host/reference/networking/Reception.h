#pragma once

#include "Credentials.h"
#include "norel/Desktop/Networking/Http/CurlHttpClient.h"

#include <curl/curl.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace norel::Desktop::Networking::Http {

/// One answer while it is received, kept within limits in each of its parts. The functions that libcurl calls
/// must not throw: `failure` holds the exception, and the transfer ends.
struct Reception {
    Reception(const CurlHttpClient::Options& newOptions, const Credentials& secrets)
        : options(newOptions), credentials(secrets) {}

    void receiveHeaderLine(std::string_view line);
    void receiveBody(std::string_view data);
    void showProgress() const;

    const CurlHttpClient::Options& options;
    const Credentials& credentials; ///< in no message
    std::string body;
    bool isHeaderComplete = false; ///< libcurl accepts a header that was cut off
    std::exception_ptr failure;

    std::size_t headerLines = 0; ///< of all headers and trailers of the exchange, as are the bytes
    std::size_t headerBytes = 0;
    std::uint64_t receivedBytes = 0; ///< on the wire, headers included
    std::string contentEncodings; ///< of all headers: libcurl, too, adds them up over informational answers
    std::string transferEncodings;
};

/// Lets `reception` receive what the connection receives; it must live until the connection's options are
/// reset.
void setReception(CURL* connection, Reception& reception);

} // namespace norel::Desktop::Networking::Http

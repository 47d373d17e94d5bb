#pragma once

#include "norel/Desktop/Networking/Http/HttpClient.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>

namespace norel::Desktop::Networking::Http {

/// HTTP/1.1 and HTTPS over libcurl. Thread-safe: each request uses a connection of its own, which stays open
/// for later requests once it is answered.
///
/// The key is sent as a bearer token. Without a key, the user part ("user:password@") of the address is sent
/// by the Basic scheme. Both are sent only to the scheme, host and port of the address; after a redirect to
/// another one they are not sent again. A user part in a redirect is ignored. The key may contain only
/// visible ASCII characters.
///
/// Up to five redirects are followed, only to HTTP and HTTPS and never from HTTPS to HTTP. TLS is 1.2 or
/// later; the certificate must be trusted and name the host.
///
/// HTTPS uses the proxy that the environment names (https_proxy, all_proxy, no_proxy), which sees no more
/// than host and port. Plain HTTP never uses a proxy, as it would see the key.
///
/// Every part of an answer is bounded: headers, trailers and informational answers (1xx) together have at
/// most 1000 lines and 256 KiB, the body is bounded by maximumBodyBytes, and all that is received by twice as
/// much and 1 MiB. The body may be encoded once, by gzip or deflate; it is returned decoded.
///
/// An answer of any status is a response; so is a redirect without a location. Anything else throws
/// HttpRequestFailed: no connection, an untrusted certificate, a timeout, an incomplete answer, an answer
/// beyond the bounds, a refused redirect, a method other than Get, a Get with a body, an invalid key. An
/// answer without a length ends with its connection, so it is not detected when that is cut off.
///
/// The message of HttpRequestFailed contains the address without user part, query and fragment. In messages
/// and in the body of an unsuccessful response, "***" replaces the key and the password where the server
/// repeats them. The body of a successful response is not changed.
class NOREL_NETWORKING_EXPORT CurlHttpClient : public HttpClient {
public:
    /// Time limits, size limits and trusted certificates.
    struct Options {
        /// For one connection, including name resolution and TLS; 1 ms to 2^31 - 1 ms.
        std::chrono::milliseconds connectTimeout = std::chrono::seconds(10);

        /// For the whole request, including redirects; 1 ms to 2^31 - 1 ms.
        std::chrono::milliseconds totalTimeout = std::chrono::minutes(5);

        /// A request fails that receives fewer bytes of the encoded body per second (1 to 2^31 - 1) for this
        /// long (1 s to 2^31 - 1 s). This includes waiting for the answer to begin.
        std::uint32_t lowSpeedBytesPerSecond = 100;
        std::chrono::seconds lowSpeedDuration = std::chrono::seconds(30);

        /// The longest body accepted, in bytes after decoding. A longer one ends the request while it is
        /// received.
        std::uint64_t maximumBodyBytes = std::uint64_t(64) * 1024 * 1024;

        /// A PEM file of trusted certificates that replaces libcurl's default file; empty for the default.
        /// Libcurl's default certificate folder, where it has one (/etc/ssl/certs), stays trusted. On Windows
        /// its default are the certificates of the system.
        std::filesystem::path certificateFile;

        /// Called at least about once a second during a request, in the thread of send(), with the length of
        /// the body received so far from the current address. An exception from it ends the request and is
        /// passed on by send(). When threads share the client, they call it concurrently.
        std::function<void(std::uint64_t receivedBytes)> progress;
    };

    /// Uses the default options. Throws std::runtime_error when libcurl cannot start.
    CurlHttpClient();

    /// Throws std::invalid_argument for an option out of its range, std::runtime_error when libcurl cannot
    /// start.
    explicit CurlHttpClient(Options newOptions);

    CurlHttpClient(const CurlHttpClient&) = delete;
    CurlHttpClient& operator=(const CurlHttpClient&) = delete;
    ~CurlHttpClient() override;

    Response send(const Request& request) override;

private:
    class Connections;

    Options options;
    std::unique_ptr<Connections> connections;
};

} // namespace norel::Desktop::Networking::Http

#pragma once

#include "norel/Desktop/Networking/Http/HttpClient.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>

namespace norel::Desktop::Networking::Http {

/// HTTP and HTTPS over libcurl. Several threads may share one client: each request takes a connection of its
/// own, and an answered request leaves it open for later ones.
///
/// The key travels as a bearer token, a user part ("user:password@") of the address by the Basic scheme where
/// there is no key; both only to the scheme, host and port of the request's address. Once a redirect has led
/// elsewhere neither is sent again, and a user part in a redirect is ignored. The key may hold visible ASCII
/// characters only.
///
/// Up to five redirects are followed, to HTTP and HTTPS only and never from HTTPS to HTTP. TLS is 1.2 or
/// later; the certificate must be trusted and name the host. Compressed bodies are accepted and returned
/// decoded. Libcurl itself bounds the length of the answer's header.
///
/// HTTPS goes through the proxy that the environment names (https_proxy, all_proxy, no_proxy), which sees no
/// more than host and port. Plain HTTP never takes a proxy: it would see the key.
///
/// An answer of any status is a response; so is a redirect that does not say where. All else is
/// HttpRequestFailed: no connection, an untrusted certificate, a time-out, a cut-off or overlong answer, a
/// refused redirect, a method other than Get, a Get with a body, a key with other characters. Its text names
/// the address without user part, query and fragment; the key is in no text. An answer that tells no length
/// ends where its connection does: that it was cut off cannot be seen.
class NOREL_NETWORKING_EXPORT CurlHttpClient : public HttpClient {
public:
    struct Options {
        /// For one connection, look-up of the host and TLS included; 1 ms to 2^31 - 1 ms.
        std::chrono::milliseconds connectTimeout = std::chrono::seconds(10);

        /// For the whole request with its redirects; 1 ms to 2^31 - 1 ms.
        std::chrono::milliseconds totalTimeout = std::chrono::minutes(5);

        /// A request is given up that receives less than so many bytes of body a second (1 to 2^31 - 1),
        /// before compression is undone, for so long (1 s to 2^31 - 1 s); waiting for the answer to begin
        /// counts.
        std::uint32_t lowSpeedBytesPerSecond = 100;
        std::chrono::seconds lowSpeedDuration = std::chrono::seconds(30);

        /// The longest body accepted, counted while it is received and after compression is undone.
        std::uint64_t maximumBodyBytes = std::uint64_t(64) * 1024 * 1024;

        /// A PEM file of certificates to trust, none when empty. It takes the place of libcurl's own
        /// certificate file; libcurl's certificate folder, where it has one (/etc/ssl/certs), is trusted as
        /// well.
        std::filesystem::path certificateFile;

        /// Called about once a second or more often while a request is under way, in the thread of send(),
        /// with the bytes of body received so far from the present address. What it throws ends the request
        /// and leaves send() unchanged. A client shared by threads calls it in each of them.
        std::function<void(std::uint64_t receivedBytes)> progress;
    };

    /// With the default options. Throws as the other constructor.
    CurlHttpClient();

    /// Throws std::invalid_argument for an option out of its range, std::runtime_error when libcurl cannot
    /// start.
    explicit CurlHttpClient(Options options);

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

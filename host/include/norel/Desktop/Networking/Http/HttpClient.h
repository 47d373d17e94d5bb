#pragma once

#include "norel/Desktop/Networking/Export.h"

#include <cstdint>
#include <exception>
#include <string>

/// HTTP requests.
namespace norel::Desktop::Networking::Http {

/// Sends HTTP requests; implemented by the application. The implementation defines whether threads may share
/// a client.
class NOREL_NETWORKING_EXPORT HttpClient {
public:
    enum class Method : std::uint32_t { Get = 0 };

    /// One request, built by its Builder.
    struct Request {
        struct Builder;

        Method method;
        std::string url;  ///< the absolute address
        std::string body; ///< the content to send; none when empty
        std::string key;  ///< when not empty, sent as a bearer token
    };

    /// The answer of the service, with any status.
    struct Response {
        std::uint32_t statusCode = 0; ///< the HTTP status, such as 200 or 404
        std::string body;

        /// Whether the status is in 200 to 299.
        bool isSuccess() const { return statusCode >= 200 && statusCode < 300; }
    };

    /// No response could be obtained; what() contains the address and the reason.
    struct NOREL_NETWORKING_EXPORT HttpRequestFailed : std::exception {
        explicit HttpRequestFailed(std::string text);

        const char* what() const noexcept override;

    private:
        std::string message;
    };

    virtual ~HttpClient();

    /// Sends the request and waits for the response. Throws HttpRequestFailed when there is none.
    virtual Response send(const Request& request) = 0;

protected:
    HttpClient() = default;
    HttpClient(const HttpClient&) = default;
    HttpClient& operator=(const HttpClient&) = default;
};

/// The fields of a request, none of which is checked.
struct HttpClient::Request::Builder {
    Method method = Method::Get;
    std::string url;
    std::string body;
    std::string key;

    Request build() const { return {method, url, body, key}; }
};

} // namespace norel::Desktop::Networking::Http

namespace norel::Desktop::Utils::ConvertToGenericString {

/// Describes a response for messages: its status and up to 200 bytes of its body, printable. A secret that
/// the body contains is not recognized; the client must mask it. Thread-safe.
NOREL_NETWORKING_EXPORT std::string
convertToGenericString(const Networking::Http::HttpClient::Response& response);

} // namespace norel::Desktop::Utils::ConvertToGenericString

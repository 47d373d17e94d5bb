#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Networking::Http {

struct HttpClient {
    struct Request {
        struct Builder;

        std::uint32_t method = 0;
        std::string url, extra, key;
    };

    struct Response {
        bool isSuccess() const { return code / 100 == 2; }

        int code = 0;
        std::string body;
    };

    struct HttpRequestFailed : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    virtual ~HttpClient() = default;
    virtual Response send(const Request& request) = 0;
};

struct HttpClient::Request::Builder : Request {
    Request build() const { return *this; }
};

} // namespace norel::Desktop::Networking::Http

namespace norel::Desktop::Utils::ConvertToGenericString {

inline std::string convertToGenericString(const Networking::Http::HttpClient::Response& response) {
    return "status " + std::to_string(response.code);
}

} // namespace norel::Desktop::Utils::ConvertToGenericString

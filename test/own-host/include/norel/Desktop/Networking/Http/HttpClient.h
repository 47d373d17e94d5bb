#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Networking::Http {

struct HttpClient {
    enum Verb : std::uint32_t {};

    struct Request {
        struct Builder;

        Verb method;
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

struct HttpClient::Request::Builder {
    Verb method{};
    std::string url, extra, key;

    Request build() const { return {method, url, extra, key}; }
};

} // namespace norel::Desktop::Networking::Http

namespace norel::Desktop::Utils::ConvertToGenericString {

std::string convertToGenericString(const Networking::Http::HttpClient::Response& response);

} // namespace norel::Desktop::Utils::ConvertToGenericString

#include "norel/Desktop/Networking/Http/HttpClient.h"

#include "text/PrintableText.h"

#include <utility>

namespace norel::Desktop {

namespace Networking::Http {

HttpClient::HttpRequestFailed::HttpRequestFailed(std::string text) : message(std::move(text)) {}

const char* HttpClient::HttpRequestFailed::what() const noexcept { return message.c_str(); }

HttpClient::~HttpClient() = default;

} // namespace Networking::Http

std::string Utils::ConvertToGenericString::convertToGenericString(
    const Networking::Http::HttpClient::Response& response) {
    constexpr std::size_t maximumBytes = 200;
    std::string status = "HTTP status " + std::to_string(response.statusCode);
    if (response.body.empty())
        return status;
    return status + ", body \"" + Text::printableText(response.body, maximumBytes) + "\"";
}

} // namespace norel::Desktop

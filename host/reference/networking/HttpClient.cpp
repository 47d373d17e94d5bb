#include "norel/Desktop/Networking/Http/HttpClient.h"

#include <utility>

namespace norel::Desktop::Networking::Http {

HttpClient::HttpRequestFailed::HttpRequestFailed(std::string message) : message(std::move(message)) {}

HttpClient::HttpRequestFailed::~HttpRequestFailed() = default;

const char* HttpClient::HttpRequestFailed::what() const noexcept { return message.c_str(); }

HttpClient::~HttpClient() = default;

} // namespace norel::Desktop::Networking::Http

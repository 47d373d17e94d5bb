#include "norel/Desktop/Networking/Http/CurlHttpClient.h"

#include "Address.h"
#include "Credentials.h"
#include "Exchange.h"
#include "text/PrintableText.h"

#include <curl/curl.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::Networking::Http {
namespace {

constexpr int MAXIMUM_REDIRECTS = 5;
constexpr char UNREADABLE[] = "an address that cannot be read";

void requireSendable(const HttpClient::Request& request) {
    if (request.method != HttpClient::Method::Get)
        throw RequestError("the method " + std::to_string(static_cast<std::uint32_t>(request.method)) +
                           " is not supported");
    if (!request.body.empty())
        throw RequestError("a Get request has no body");
    // No token has other characters, and a line break would begin another header.
    if (!std::all_of(request.key.begin(), request.key.end(), [](char c) { return c > ' ' && c < '\x7f'; }))
        throw RequestError("the key has a character that is not visible ASCII");
}

void requireRange(const char* name, std::int64_t value) {
    constexpr auto maximum = std::numeric_limits<std::int32_t>::max(); // of libcurl
    if (value < 1 || value > maximum)
        throw std::invalid_argument(std::string("the HTTP client's ") + name + " must be between 1 and " +
                                    std::to_string(maximum));
}

void startCurl() {
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT); // until the process ends
    if (code != CURLE_OK)
        throw std::runtime_error(std::string("libcurl cannot start: ") + curl_easy_strerror(code));
}

} // namespace

/// The idle connections, at most as many as there were requests at one time.
class CurlHttpClient::Connections {
public:
    struct Close {
        void operator()(CURL* connection) const { curl_easy_cleanup(connection); }
    };
    using Connection = std::unique_ptr<CURL, Close>;

    Connection take() {
        {
            const std::lock_guard lock(mutex);
            if (!idle.empty()) {
                Connection connection = std::move(idle.back());
                idle.pop_back();
                return connection;
            }
        }
        Connection connection(curl_easy_init());
        if (!connection)
            throw std::bad_alloc();
        return connection;
    }

    void giveBack(Connection connection) {
        const std::lock_guard lock(mutex);
        idle.push_back(std::move(connection));
    }

private:
    std::mutex mutex;
    std::vector<Connection> idle;
};

CurlHttpClient::CurlHttpClient() : CurlHttpClient(Options{}) {}

CurlHttpClient::CurlHttpClient(Options newOptions)
    : options(std::move(newOptions)), connections(std::make_unique<Connections>()) {
    requireRange("connectTimeout", options.connectTimeout.count());
    requireRange("totalTimeout", options.totalTimeout.count());
    requireRange("lowSpeedBytesPerSecond", options.lowSpeedBytesPerSecond);
    requireRange("lowSpeedDuration", options.lowSpeedDuration.count());
    startCurl();
}

CurlHttpClient::~CurlHttpClient() = default;

HttpClient::Response CurlHttpClient::send(const Request& request) {
    std::string shown = UNREADABLE;
    try {
        Address address(request.url);
        const Credentials credentials{request.key, address.user, address.password};
        const auto show = [&](const Address& one) {
            return Text::printableText(credentials.masked(one.displayUrl), MAXIMUM_SHOWN_BYTES);
        };
        shown = show(address);
        const std::string redirected = shown + ", redirected to ";
        requireSendable(request);
        const RequestContext context{options, credentials,
                                     std::chrono::steady_clock::now() + options.totalTimeout};
        auto connection = connections->take();
        bool sendsCredentials = true;
        for (int redirects = 0;; ++redirects) {
            if (address.scheme != "http" && address.scheme != "https")
                throw RequestError("the scheme is neither http nor https");
            auto [response, redirect] = exchange(connection.get(), address, sendsCredentials, context);
            if (redirect.empty()) {
                connections->giveBack(std::move(connection));
                if (!response.isSuccess())
                    response.body = credentials.masked(std::move(response.body));
                return std::move(response);
            }
            if (redirects == MAXIMUM_REDIRECTS)
                throw RequestError("more than " + std::to_string(MAXIMUM_REDIRECTS) + " redirects");
            shown = redirected + UNREADABLE;
            const Address next(redirect);
            shown = redirected + show(next);
            if (address.scheme == "https" && next.scheme == "http")
                throw RequestError("a redirect from https to http is not followed");
            sendsCredentials = sendsCredentials && next.isSameOriginAs(address);
            address = next;
        }
    } catch (const RequestError& error) { // destroys, and so closes, the connection
        throw HttpRequestFailed("cannot get " + shown + ": " + error.what());
    }
}

} // namespace norel::Desktop::Networking::Http

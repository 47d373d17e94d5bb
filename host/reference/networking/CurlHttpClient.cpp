#include "norel/Desktop/Networking/Http/CurlHttpClient.h"

#include "Address.h"
#include "text/PrintableText.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace norel::Desktop::Networking::Http {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int MAXIMUM_REDIRECTS = 5;
constexpr std::size_t MAXIMUM_REASON_BYTES = 300;
constexpr char CUT_OFF[] = "the connection was closed before the answer was complete";
constexpr char UNREADABLE[] = "an address that cannot be read";

struct Cleanup {
    void operator()(CURL* connection) const { curl_easy_cleanup(connection); }
};

using Connection = std::unique_ptr<CURL, Cleanup>;

/// What proves the right to an answer; meant for one scheme, host and port.
struct Credentials {
    std::string key;
    std::string user;
    std::string password;
};

/// What libcurl's callbacks gather; `failure` is what they must not throw through libcurl.
struct Reception {
    const CurlHttpClient::Options& options;
    std::string body;
    bool isHeaderComplete = false;
    bool isTooLong = false;
    std::exception_ptr failure;
};

/// Looks for the empty line that ends a header: libcurl lets a header that was cut off pass.
std::size_t receiveHeader(const char* data, std::size_t, std::size_t size, void* user) {
    auto& reception = *static_cast<Reception*>(user);
    const std::string_view line(data, size);
    if (line.starts_with("HTTP/"))
        reception.isHeaderComplete = false;
    else if (line == "\r\n" || line == "\n")
        reception.isHeaderComplete = true;
    return size;
}

std::size_t receive(const char* data, std::size_t, std::size_t size, void* user) {
    auto& reception = *static_cast<Reception*>(user);
    reception.isTooLong = size > reception.options.maximumBodyBytes - reception.body.size();
    if (reception.isTooLong)
        return 0;
    try {
        reception.body.append(data, size);
        return size;
    } catch (...) {
        reception.failure = std::current_exception();
        return 0;
    }
}

int showProgress(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto& reception = *static_cast<Reception*>(user);
    try {
        reception.options.progress(reception.body.size());
        return 0;
    } catch (...) {
        reception.failure = std::current_exception();
        return 1;
    }
}

template <typename Value>
void setOption(CURL* connection, CURLoption option, Value value) {
    if (const CURLcode code = curl_easy_setopt(connection, option, value); code != CURLE_OK)
        throw RequestError(std::string("libcurl refuses an option: ") + curl_easy_strerror(code));
}

template <typename Value>
Value getInfo(CURL* connection, CURLINFO info, Value value) {
    curl_easy_getinfo(connection, info, &value);
    return value;
}

void setSecurity(CURL* connection, const CurlHttpClient::Options& options, const Address& address) {
    setOption(connection, CURLOPT_PROTOCOLS_STR, "http,https");
    setOption(connection, CURLOPT_FOLLOWLOCATION, 0L); // send() follows and decides what goes along
    setOption(connection, CURLOPT_SSL_VERIFYPEER, 1L);
    setOption(connection, CURLOPT_SSL_VERIFYHOST, 2L);
    setOption(connection, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    if (!options.certificateFile.empty())
        setOption(connection, CURLOPT_CAINFO, options.certificateFile.string().c_str());
    if (address.scheme == "http")
        setOption(connection, CURLOPT_PROXY, ""); // none, whatever the environment says
}

void setCredentials(CURL* connection, const Credentials& credentials) {
    if (!credentials.key.empty()) {
        setOption(connection, CURLOPT_HTTPAUTH, CURLAUTH_BEARER);
        setOption(connection, CURLOPT_XOAUTH2_BEARER, credentials.key.c_str());
    } else if (!credentials.user.empty() || !credentials.password.empty()) {
        setOption(connection, CURLOPT_USERNAME, credentials.user.c_str());
        setOption(connection, CURLOPT_PASSWORD, credentials.password.c_str());
    }
}

void setLimits(CURL* connection, const CurlHttpClient::Options& options, Clock::time_point deadline) {
    const std::int64_t left = std::chrono::ceil<milliseconds>(deadline - Clock::now()).count();
    setOption(connection, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options.connectTimeout.count()));
    setOption(connection, CURLOPT_TIMEOUT_MS, std::max(static_cast<long>(left), 1L)); // 0 is for ever
    setOption(connection, CURLOPT_LOW_SPEED_LIMIT, static_cast<long>(options.lowSpeedBytesPerSecond));
    setOption(connection, CURLOPT_LOW_SPEED_TIME, static_cast<long>(options.lowSpeedDuration.count()));
}

void setReception(CURL* connection, Reception& reception) {
    setOption(connection, CURLOPT_NOSIGNAL, 1L); // signals belong to the application, and to one thread
    setOption(connection, CURLOPT_ACCEPT_ENCODING, ""); // all that libcurl can undo
    setOption(connection, CURLOPT_HEADERFUNCTION, &receiveHeader);
    setOption(connection, CURLOPT_HEADERDATA, &reception);
    setOption(connection, CURLOPT_WRITEFUNCTION, &receive);
    setOption(connection, CURLOPT_WRITEDATA, &reception);
    if (reception.options.progress) {
        setOption(connection, CURLOPT_NOPROGRESS, 0L);
        setOption(connection, CURLOPT_XFERINFOFUNCTION, &showProgress);
        setOption(connection, CURLOPT_XFERINFODATA, &reception);
    }
}

std::string timeOutReason(CURL* connection, const CurlHttpClient::Options& options,
                          Clock::time_point deadline) {
    if (Clock::now() + milliseconds(2) >= deadline) // libcurl may be a millisecond early
        return "no complete answer within " + std::to_string(options.totalTimeout.count()) + " ms";
    if (getInfo(connection, CURLINFO_PRETRANSFER_TIME_T, curl_off_t(0)) == 0)
        return "no connection within " + std::to_string(options.connectTimeout.count()) + " ms";
    return "less than " + std::to_string(options.lowSpeedBytesPerSecond) + " bytes a second for " +
           std::to_string(options.lowSpeedDuration.count()) + " s";
}

/// Why there is no answer; `detail` is libcurl's own account, which tells what is wrong with a certificate.
std::string reasonOf(CURLcode code, CURL* connection, const Reception& reception, const char* detail,
                     Clock::time_point deadline) {
    if (reception.isTooLong)
        return "the answer is longer than " + std::to_string(reception.options.maximumBodyBytes) + " bytes";
    if (code == CURLE_OPERATION_TIMEDOUT)
        return timeOutReason(connection, reception.options, deadline);
    if (code == CURLE_PARTIAL_FILE || code == CURLE_GOT_NOTHING)
        return CUT_OFF;
    const long systemError = getInfo(connection, CURLINFO_OS_ERRNO, 0L);
    if (code == CURLE_COULDNT_CONNECT && systemError != 0)
        return "cannot connect: " + std::generic_category().message(static_cast<int>(systemError));
    return *detail != '\0' ? Text::printableText(detail, MAXIMUM_REASON_BYTES) : curl_easy_strerror(code);
}

/// One request and its answer, redirects not followed.
HttpClient::Response exchange(CURL* connection, const CurlHttpClient::Options& options,
                              const Address& address, const Credentials& credentials,
                              Clock::time_point deadline) {
    Reception reception{options, {}, false, false, nullptr};
    std::array<char, CURL_ERROR_SIZE> detail{};
    curl_easy_reset(connection); // the options alone: connections stay open
    setOption(connection, CURLOPT_URL, address.url.c_str());
    setSecurity(connection, options, address);
    setCredentials(connection, credentials);
    setLimits(connection, options, deadline);
    setReception(connection, reception);
    setOption(connection, CURLOPT_ERRORBUFFER, detail.data());
    const CURLcode code = curl_easy_perform(connection);
    setOption(connection, CURLOPT_ERRORBUFFER, static_cast<char*>(nullptr));
    if (reception.failure)
        std::rethrow_exception(reception.failure);
    if (code != CURLE_OK)
        throw RequestError(reasonOf(code, connection, reception, detail.data(), deadline));
    if (!reception.isHeaderComplete)
        throw RequestError(CUT_OFF);
    const long status = getInfo(connection, CURLINFO_RESPONSE_CODE, 0L);
    return {static_cast<std::uint32_t>(status), std::move(reception.body)};
}

/// Where the last answer redirects to, as an absolute address; empty when it does not.
std::string redirectOf(CURL* connection) {
    const char* location = getInfo(connection, CURLINFO_REDIRECT_URL, static_cast<const char*>(nullptr));
    return location == nullptr ? "" : location;
}

void check(const HttpClient::Request& request) {
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
    static const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT); // for as long as the process lives
    if (code != CURLE_OK)
        throw std::runtime_error(std::string("libcurl cannot start: ") + curl_easy_strerror(code));
}

} // namespace

/// The connections that wait for a request; at most as many as there were requests at one time.
class CurlHttpClient::Connections {
public:
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
        curl_easy_reset(connection.get()); // forgets the key
        const std::lock_guard lock(mutex);
        idle.push_back(std::move(connection));
    }

private:
    std::mutex mutex;
    std::vector<Connection> idle;
};

CurlHttpClient::CurlHttpClient() : CurlHttpClient(Options{}) {}

CurlHttpClient::CurlHttpClient(Options options)
    : options(std::move(options)), connections(std::make_unique<Connections>()) {
    requireRange("connectTimeout", this->options.connectTimeout.count());
    requireRange("totalTimeout", this->options.totalTimeout.count());
    requireRange("lowSpeedBytesPerSecond", this->options.lowSpeedBytesPerSecond);
    requireRange("lowSpeedDuration", this->options.lowSpeedDuration.count());
    startCurl();
}

CurlHttpClient::~CurlHttpClient() = default;

HttpClient::Response CurlHttpClient::send(const Request& request) {
    std::string name = UNREADABLE;
    try {
        Address address(request.url);
        const std::string redirected = address.name + ", redirected to ";
        name = address.name;
        check(request);
        Credentials credentials{request.key, address.user, address.password};
        const auto deadline = Clock::now() + options.totalTimeout;
        Connection connection = connections->take();
        for (int redirects = 0;; ++redirects) {
            if (address.scheme != "http" && address.scheme != "https")
                throw RequestError("the scheme is neither http nor https");
            Response response = exchange(connection.get(), options, address, credentials, deadline);
            const std::string location = redirectOf(connection.get());
            if (location.empty()) {
                connections->giveBack(std::move(connection));
                return response;
            }
            if (redirects == MAXIMUM_REDIRECTS)
                throw RequestError("more than " + std::to_string(MAXIMUM_REDIRECTS) + " redirects");
            name = redirected + UNREADABLE;
            const Address next(location);
            name = redirected + next.name;
            if (address.scheme == "https" && next.scheme == "http")
                throw RequestError("a redirect from https to http is not followed");
            if (!next.isSameOriginAs(address))
                credentials = {};
            address = next;
        }
    } catch (const RequestError& error) { // a connection that was in use is closed
        throw HttpRequestFailed("cannot get " + name + ": " + error.what());
    }
}

} // namespace norel::Desktop::Networking::Http

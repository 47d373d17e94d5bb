#include "Exchange.h"

#include "CurlOption.h"
#include "Reception.h"
#include "text/PrintableText.h"
#include "text/Utf8Path.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <system_error>
#include <utility>

namespace norel::Desktop::Networking::Http {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr char CUT_OFF[] = "the connection was closed before the answer was complete";

/// Forgets the credentials and the pointers to what is about to be destroyed; connections stay open.
struct ResetOnExit {
    explicit ResetOnExit(CURL* toReset) : connection(toReset) {}

    ResetOnExit(const ResetOnExit&) = delete;
    ResetOnExit& operator=(const ResetOnExit&) = delete;

    ~ResetOnExit() { curl_easy_reset(connection); }

    CURL* connection;
};

template <typename Value>
Value getInfo(CURL* connection, CURLINFO info, Value value) {
    curl_easy_getinfo(connection, info, &value);
    return value;
}

void setProtocol(CURL* connection, const CurlHttpClient::Options& options, const Address& address) {
    setOption(connection, CURLOPT_URL, address.url.c_str());
    setOption(connection, CURLOPT_PROTOCOLS_STR, "http,https");
    setOption(connection, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    setOption(connection, CURLOPT_FOLLOWLOCATION, 0L); // CurlHttpClient::send does
    setOption(connection, CURLOPT_SSL_VERIFYPEER, 1L);
    setOption(connection, CURLOPT_SSL_VERIFYHOST, 2L);
    setOption(connection, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    if (!options.certificateFile.empty())
        setOption(connection, CURLOPT_CAINFO, Text::toUtf8(options.certificateFile).c_str());
    if (address.scheme == "http")
        setOption(connection, CURLOPT_PROXY, ""); // none, whatever the environment says
    setOption(connection, CURLOPT_NOSIGNAL, 1L);  // signals belong to the application
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

void setTimeouts(CURL* connection, const RequestContext& context) {
    const CurlHttpClient::Options& options = context.options;
    const std::int64_t left = std::chrono::ceil<milliseconds>(context.deadline - Clock::now()).count();
    setOption(connection, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(options.connectTimeout.count()));
    setOption(connection, CURLOPT_TIMEOUT_MS, std::max(static_cast<long>(left), 1L)); // 0 is no limit
    setOption(connection, CURLOPT_LOW_SPEED_LIMIT, static_cast<long>(options.lowSpeedBytesPerSecond));
    setOption(connection, CURLOPT_LOW_SPEED_TIME, static_cast<long>(options.lowSpeedDuration.count()));
}

std::string timeoutReason(CURL* connection, const RequestContext& context) {
    const CurlHttpClient::Options& options = context.options;
    if (Clock::now() + milliseconds(2) >= context.deadline) // libcurl may be a millisecond early
        return "no complete answer within " + std::to_string(options.totalTimeout.count()) + " ms";
    if (getInfo(connection, CURLINFO_PRETRANSFER_TIME_T, curl_off_t(0)) == 0)
        return "no connection within " + std::to_string(options.connectTimeout.count()) + " ms";
    return "less than " + std::to_string(options.lowSpeedBytesPerSecond) + " bytes a second for " +
           std::to_string(options.lowSpeedDuration.count()) + " s";
}

/// Why there is no answer. `detail` is the message of libcurl, for example the problem with a certificate.
std::string reasonOf(CURLcode code, CURL* connection, const char* detail, const RequestContext& context) {
    if (code == CURLE_OPERATION_TIMEDOUT)
        return timeoutReason(connection, context);
    if (code == CURLE_PARTIAL_FILE || code == CURLE_GOT_NOTHING)
        return CUT_OFF;
    if (code == CURLE_OUT_OF_MEMORY) // libcurl's only answer to a header line of more than 100 KB
        return "a header line of the answer is too long, or memory is short";
    const long systemError = getInfo(connection, CURLINFO_OS_ERRNO, 0L);
    if (code == CURLE_COULDNT_CONNECT && systemError != 0)
        return "cannot connect: " + std::system_category().message(static_cast<int>(systemError));
    return *detail != '\0' ? Text::printableText(context.credentials.masked(detail), MAXIMUM_SHOWN_BYTES)
                           : curl_easy_strerror(code);
}

} // namespace

Answer exchange(CURL* connection, const Address& address, bool sendsCredentials,
                const RequestContext& context) {
    Reception reception(context.options, context.credentials);
    std::array<char, CURL_ERROR_SIZE> detail{};
    const ResetOnExit reset(connection);
    setProtocol(connection, context.options, address);
    if (sendsCredentials)
        setCredentials(connection, context.credentials);
    setTimeouts(connection, context);
    setReception(connection, reception);
    setOption(connection, CURLOPT_ERRORBUFFER, detail.data());
    const CURLcode code = curl_easy_perform(connection);
    if (reception.failure)
        std::rethrow_exception(reception.failure);
    if (code != CURLE_OK)
        throw RequestError(reasonOf(code, connection, detail.data(), context));
    if (!reception.isHeaderComplete)
        throw RequestError(CUT_OFF);
    const long status = getInfo(connection, CURLINFO_RESPONSE_CODE, 0L);
    const char* redirect = getInfo(connection, CURLINFO_REDIRECT_URL, static_cast<const char*>(nullptr));
    return {{static_cast<std::uint32_t>(status), std::move(reception.body)},
            redirect == nullptr ? "" : redirect};
}

} // namespace norel::Desktop::Networking::Http

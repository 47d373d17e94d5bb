#include "Reception.h"

#include "CurlOption.h"
#include "text/PrintableText.h"

#include <algorithm>
#include <array>
#include <limits>

namespace norel::Desktop::Networking::Http {
namespace {

constexpr std::size_t MAXIMUM_HEADER_LINES = 1000;
constexpr std::size_t MAXIMUM_HEADER_BYTES = std::size_t(256) * 1024;
constexpr std::uint64_t MAXIMUM_OVERHEAD_BYTES = std::uint64_t(1024) * 1024;
constexpr std::size_t MAXIMUM_SHOWN_ENCODING_BYTES = 60;
constexpr char ACCEPTED_ENCODINGS[] = "gzip, deflate";

template <typename Limit>
void requireAtMost(std::uint64_t size, Limit limit, const char* unit, const char* what) {
    if (size > limit)
        throw RequestError(std::string(what) + " is longer than " + std::to_string(limit) + ' ' + unit);
}

/// Framing may be as large as the body. All received bytes are counted because libcurl silently drops some,
/// such as chunk extensions and the empty blocks of a compressed body.
std::uint64_t maximumTransferBytes(std::uint64_t maximumBodyBytes) {
    constexpr std::uint64_t maximum = std::numeric_limits<std::uint64_t>::max();
    return maximumBodyBytes > (maximum - MAXIMUM_OVERHEAD_BYTES) / 2
               ? maximum
               : MAXIMUM_OVERHEAD_BYTES + 2 * maximumBodyBytes;
}

std::string toLowerCase(std::string_view text) {
    std::string result(text);
    for (char& letter : result)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return result;
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view whitespace = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(whitespace), text.size());
    return text.substr(begin, text.find_last_not_of(whitespace) + 1 - begin);
}

/// Adds what a header line says to `encodings`; throws for anything but one of those accepted. Libcurl would
/// undo encodings that it did not ask for, several on top of each other, with much memory for some.
template <std::size_t N>
void addEncodings(std::string& encodings, std::string_view value,
                  const std::array<std::string_view, N>& accepted, const Credentials& credentials) {
    if (value.empty())
        return;
    encodings += (encodings.empty() ? "" : ", ") + std::string(value);
    if (std::find(accepted.begin(), accepted.end(), toLowerCase(encodings)) == accepted.end())
        throw RequestError("the encoding \"" +
                           Text::printableText(credentials.masked(encodings), MAXIMUM_SHOWN_ENCODING_BYTES) +
                           "\" of the answer is not supported");
}

/// Calls a function for libcurl, which exceptions must not pass.
template <typename Function>
bool succeeds(Reception& reception, Function function) {
    try {
        function();
        return true;
    } catch (...) {
        reception.failure = std::current_exception();
        return false;
    }
}

std::size_t receiveHeaderLine(const char* data, std::size_t, std::size_t size, void* user) {
    auto& reception = *static_cast<Reception*>(user);
    return succeeds(reception, [&] { reception.receiveHeaderLine({data, size}); }) ? size : 0;
}

std::size_t receiveBody(const char* data, std::size_t, std::size_t size, void* user) {
    auto& reception = *static_cast<Reception*>(user);
    return succeeds(reception, [&] { reception.receiveBody({data, size}); }) ? size : 0;
}

int showProgress(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto& reception = *static_cast<Reception*>(user);
    return succeeds(reception, [&] { reception.showProgress(); }) ? 0 : 1;
}

/// Sees the bytes as they were received, but cannot end the transfer; showProgress does.
int countReceived(CURL*, curl_infotype type, char*, std::size_t size, void* user) {
    if (type == CURLINFO_HEADER_IN || type == CURLINFO_DATA_IN)
        static_cast<Reception*>(user)->receivedBytes += size;
    return 0;
}

} // namespace

void Reception::receiveHeaderLine(std::string_view line) {
    requireAtMost(++headerLines, MAXIMUM_HEADER_LINES, "lines", "the header of the answer");
    headerBytes += line.size();
    requireAtMost(headerBytes, MAXIMUM_HEADER_BYTES, "bytes", "the header of the answer");
    if (line.starts_with("HTTP/"))
        isHeaderComplete = false;
    else if (line == "\r\n" || line == "\n")
        isHeaderComplete = true;
    const std::size_t colon = std::min(line.find(':'), line.size());
    const std::string name = toLowerCase(trimmed(line.substr(0, colon)));
    const std::string_view value = trimmed(line.substr(std::min(colon + 1, line.size())));
    if (name == "content-encoding")
        addEncodings<4>(contentEncodings, value, {"identity", "gzip", "x-gzip", "deflate"}, credentials);
    else if (name == "transfer-encoding")
        addEncodings<2>(transferEncodings, value, {"identity", "chunked"}, credentials);
}

void Reception::receiveBody(std::string_view data) {
    requireAtMost(body.size() + data.size(), options.maximumBodyBytes, "bytes", "the answer");
    body.append(data);
}

void Reception::showProgress() const {
    requireAtMost(receivedBytes, maximumTransferBytes(options.maximumBodyBytes), "bytes",
                  "the transfer of the answer");
    if (options.progress)
        options.progress(body.size());
}

void setReception(CURL* connection, Reception& reception) {
    setOption(connection, CURLOPT_ACCEPT_ENCODING, ACCEPTED_ENCODINGS);
    setOption(connection, CURLOPT_HEADERFUNCTION, &receiveHeaderLine);
    setOption(connection, CURLOPT_HEADERDATA, &reception);
    setOption(connection, CURLOPT_WRITEFUNCTION, &receiveBody);
    setOption(connection, CURLOPT_WRITEDATA, &reception);
    setOption(connection, CURLOPT_NOPROGRESS, 0L);
    setOption(connection, CURLOPT_XFERINFOFUNCTION, &showProgress);
    setOption(connection, CURLOPT_XFERINFODATA, &reception);
    setOption(connection, CURLOPT_VERBOSE, 1L); // for the debug function
    setOption(connection, CURLOPT_DEBUGFUNCTION, &countReceived);
    setOption(connection, CURLOPT_DEBUGDATA, &reception);
}

} // namespace norel::Desktop::Networking::Http

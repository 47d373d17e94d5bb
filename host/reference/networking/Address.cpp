#include "Address.h"

#include <curl/curl.h>

#include <memory>

namespace norel::Desktop::Networking::Http {
namespace {

struct Cleanup {
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
    void operator()(char* text) const { curl_free(text); }
};

std::string get(CURLU* url, CURLUPart part, unsigned flags = 0) {
    char* text = nullptr;
    if (curl_url_get(url, part, &text, flags) != CURLUE_OK) // the address has no such part
        return {};
    return std::unique_ptr<char, Cleanup>(text).get();
}

} // namespace

Address::Address(const std::string& text) {
    const std::unique_ptr<CURLU, Cleanup> parts(curl_url());
    if (!parts)
        throw std::bad_alloc();
    const CURLUcode code =
        text.find('\0') == std::string::npos
            ? curl_url_set(parts.get(), CURLUPART_URL, text.c_str(), CURLU_NON_SUPPORT_SCHEME)
            : CURLUE_MALFORMED_INPUT;
    if (code != CURLUE_OK)
        throw RequestError(curl_url_strerror(code));
    scheme = get(parts.get(), CURLUPART_SCHEME);
    host = get(parts.get(), CURLUPART_HOST);
    port = get(parts.get(), CURLUPART_PORT, CURLU_DEFAULT_PORT);
    user = get(parts.get(), CURLUPART_USER, CURLU_URLDECODE);
    password = get(parts.get(), CURLUPART_PASSWORD, CURLU_URLDECODE);
    for (const CURLUPart secret : {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_OPTIONS})
        curl_url_set(parts.get(), secret, nullptr, 0);
    url = get(parts.get(), CURLUPART_URL);
    for (const CURLUPart secret : {CURLUPART_QUERY, CURLUPART_FRAGMENT})
        curl_url_set(parts.get(), secret, nullptr, 0);
    displayUrl = get(parts.get(), CURLUPART_URL);
    if (displayUrl.find('@') != std::string::npos)
        displayUrl = "an address with \"@\" in its path";
}

bool Address::isSameOriginAs(const Address& other) const {
    return scheme == other.scheme && curl_strequal(host.c_str(), other.host.c_str()) != 0 &&
           port == other.port;
}

} // namespace norel::Desktop::Networking::Http

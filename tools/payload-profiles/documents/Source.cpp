#include "documents/Source.h"

#include "documents/Failure.h"
#include "documents/ProfileFile.h"
#include "norel/Desktop/Domain/Payloads/ProfileListDefaultProductsStorage.h"
#include "norel/Desktop/Domain/Payloads/ProfileListHttpStorage.h"
#include "norel/Desktop/Networking/Http/CurlHttpClient.h"
#include "norel/Desktop/Utils/StringConverter.h"
#include "terminal/Progress.h"
#include "terminal/Text.h"
#include "text/MaskedText.h"
#include "text/Utf8Path.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace norel::Desktop::PayloadProfiles {
namespace {

using Networking::Http::CurlHttpClient;
using Networking::Http::HttpClient;

/// Not read through the text file store, which refuses pipes: a key may come from one.
std::string readKeyFile(const std::string& name) {
    constexpr std::size_t limit = 65536;
    std::string text(limit + 1, '\0');
    std::ifstream file(Text::makePath(name), std::ios::binary);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (!file.is_open() || file.bad())
        throw Failure(name, "cannot read the key file");
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (text.size() > limit)
        throw Failure(name, "the key file is longer than 64 KiB");
    std::istringstream words(text);
    std::string key;
    std::string rest;
    if (!(words >> key) || words >> rest)
        throw Failure(name, "the key file must contain exactly one word");
    return key;
}

/// The key of the web service, empty for none.
std::string readKey(const Source& source) {
    if (!source.keyFile.empty())
        return readKeyFile(source.keyFile);
    const char* key = std::getenv("PAYLOAD_PROFILES_KEY");
    return key == nullptr ? "" : key;
}

void checkAddress(const Source& source) {
    const std::string& address = source.location;
    const std::size_t slashes = address.find("://");
    if (slashes == std::string::npos || slashes != address.find(':'))
        throw Failure(source.getName(), "an address begins with http:// or https://");
    if (address.find_first_of("?#") != std::string::npos)
        throw Failure(source.getName(), "a base address has no query and no fragment");
    const std::size_t host = slashes + 3;
    const std::size_t path = address.find('/', host);
    if (host == path || host == address.size())
        throw Failure(source.getName(), "the address has no host");
    if (path != std::string::npos && address.find('@', path) != std::string::npos)
        throw Failure(source.getName(), "write an @ in the path as %40, a / in the password as %2F");
}

/// The password as the address spells it; without a password the user. Empty for none.
std::string findPassword(const Source& source) {
    const std::size_t user = source.location.find("//") + 2;
    const std::size_t at = source.location.rfind('@');
    if (at == std::string::npos)
        return {};
    const std::size_t colon = source.location.find(':', user);
    const std::size_t begin = colon < at ? colon + 1 : user;
    return source.location.substr(begin, at - begin);
}

/// Keeps what is asked and the answer, for messages.
class ObservedClient : public HttpClient {
public:
    explicit ObservedClient(const CurlHttpClient::Options& options) : client(options) {}

    Response send(const Request& request) override {
        url = request.url;
        Response response = client.send(request);
        status = response.statusCode;
        body = response.body;
        return response;
    }

    std::string url;
    std::string body;
    std::uint32_t status = 0; ///< 0 without an answer

private:
    CurlHttpClient client;
};

/// What the user can do about the status of an answer; begins with a space.
std::string makeAdvice(const ObservedClient& client, bool hasKey) {
    const std::string either = "--key-file or the environment variable PAYLOAD_PROFILES_KEY";
    if (client.status == 401)
        return hasKey ? " The service refused the key from " + either + '.'
                      : " The service requires a key; give it with " + either + '.';
    if (client.status == 404)
        return " The address that was asked is " + Source{client.url, {}}.getName() + '.';
    return {};
}

ProfileList readAddress(const DocumentAccess& documents, const Source& source, const std::string& key,
                        const TextObserver& onText) {
    const std::string baseUrl = source.location + (source.location.back() == '/' ? "" : "/");
    const auto progress = std::make_shared<Progress>();
    CurlHttpClient::Options options;
    options.progress = [progress, name = printable(source.getName())](std::uint64_t receivedBytes) {
        progress->show("read " + std::to_string(receivedBytes / 1024) + " KiB from " + name);
    };
    const auto client = std::make_shared<ObservedClient>(options);
    try {
        ProfileList list = readProfiles(source.getName(), std::make_shared<ProfileListHttpStorage>(
                                                              baseUrl, client, key, documents.serializer));
        if (onText)
            onText(Text::masked(client->body, key));
        return list;
    } catch (const Failure& failure) { // which may quote secrets that the server repeats
        const std::string message = failure.what() + makeAdvice(*client, !key.empty());
        throw Failure(failure.subject, Text::masked(Text::masked(message, key), findPassword(source)));
    }
}

} // namespace

bool Source::isBuiltIn() const { return location == "factory"; }

bool Source::isAddress() const {
    const std::string upperCase = Utils::StringConverter::toUpperCase(location);
    return upperCase.starts_with("HTTP:") || upperCase.starts_with("HTTPS:");
}

std::string Source::getName() const {
    const std::size_t at = location.rfind('@');
    const bool isPath = location.starts_with("./") || location.starts_with("../");
    if (at == std::string::npos || location.find(':') > at || isPath)
        return location;
    const std::size_t slashes = location.find("//");
    const std::size_t user = isAddress() && slashes < at ? slashes + 2 : 0;
    return location.substr(0, user) + location.substr(at + 1);
}

ProfileList readSource(const DocumentAccess& documents, const Source& source, const TextObserver& onText) {
    if (source.isBuiltIn())
        return readProfiles(source.getName(), std::make_shared<ProfileListDefaultProductsStorage>());
    if (!source.isAddress())
        return readFile(documents, source.location, onText);
    return about(source.getName(), [&] {
        checkAddress(source);
        return readAddress(documents, source, readKey(source), onText);
    });
}

} // namespace norel::Desktop::PayloadProfiles

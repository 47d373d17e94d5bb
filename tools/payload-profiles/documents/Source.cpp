#include "documents/Source.h"

#include "documents/ProfileFile.h"
#include "norel/Desktop/Domain/Payloads/ProfileListDefaultProductsStorage.h"
#include "norel/Desktop/Domain/Payloads/ProfileListHttpStorage.h"
#include "norel/Desktop/Networking/Http/CurlHttpClient.h"
#include "norel/Desktop/Utils/StringConverter.h"
#include "terminal/Terminal.h"
#include "terminal/Text.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <cstdlib>
#include <fstream>

namespace norel::Desktop::PayloadProfiles {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* FACTORY = "factory";

/// Shows on a terminal, once it takes longer than a second, how much of an answer has come, and wipes that
/// away again.
class Progress {
public:
    explicit Progress(const std::string& name) : name(printable(name)) {}

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    ~Progress() {
        if (isShown)
            Terminal::writeMessage("\r\x1b[K");
    }

    void update(std::uint64_t receivedBytes) {
        const auto width = Terminal::getMessageWidth();
        if (!width || Clock::now() - start < std::chrono::seconds(1))
            return;
        isShown = true;
        const std::string line = "read " + std::to_string(receivedBytes / 1024) + " KiB from " + name;
        Terminal::writeMessage("\r\x1b[K" + shortened(line, *width));
    }

private:
    std::string name;
    Clock::time_point start = Clock::now();
    bool isShown = false;
};

/// The key of the web service, empty for none. Not the text file store's to read: a key may come from a pipe.
std::string readKey(const Source& source) {
    if (source.keyFile.empty()) {
        const char* key = std::getenv("PAYLOAD_PROFILES_KEY");
        return key == nullptr ? "" : key;
    }
    std::ifstream file(source.keyFile);
    std::string key;
    std::string rest;
    if (!(file >> key) || file >> rest)
        throw Failure(source.keyFile, "the key file cannot be read or does not hold exactly one word");
    return key;
}

std::shared_ptr<ProfileListStorage> openAddress(const Context& context, const Source& source) {
    if (source.location.find_first_of("?#") != std::string::npos)
        throw Failure(source.getName(), "a base address has no query and no fragment");
    const std::size_t host = source.location.find("//") + 2;
    const std::size_t path = source.location.find('/', host);
    if (host == path || host == source.location.size())
        throw Failure(source.getName(), "the address names no host");
    if (path != std::string::npos && source.location.find('@', path) != std::string::npos)
        throw Failure(source.getName(), "an @ in the path is written %40, a / in a password %2F");
    const std::string baseUrl = source.location + (source.location.back() == '/' ? "" : "/");
    const auto progress = std::make_shared<Progress>(source.getName());
    Networking::Http::CurlHttpClient::Options options;
    options.progress = [progress](std::uint64_t receivedBytes) { progress->update(receivedBytes); };
    const auto client = std::make_shared<Networking::Http::CurlHttpClient>(options);
    return std::make_shared<ProfileListHttpStorage>(baseUrl, client, readKey(source), context.serializer);
}

std::shared_ptr<ProfileListStorage> openSource(const Context& context, const Source& source) {
    if (source.location == FACTORY)
        return std::make_shared<ProfileListDefaultProductsStorage>();
    if (source.isAddress())
        return about(source.getName(), [&] { return openAddress(context, source); });
    return openFile(context, source.location);
}

} // namespace

bool Source::isAddress() const {
    const std::string upperCase = Utils::StringConverter::toUpperCase(location);
    return upperCase.starts_with("HTTP://") || upperCase.starts_with("HTTPS://");
}

bool Source::isBuiltInOrAddress() const { return location == FACTORY || isAddress(); }

std::string Source::getName() const {
    const std::size_t at = location.rfind('@');
    if (at == std::string::npos || location.find(':') > at || location.find('/') > at)
        return location;
    const std::size_t user = isAddress() ? location.find("//") + 2 : 0;
    return location.substr(0, user) + location.substr(at + 1);
}

void addSource(CLI::App& command, Source& source) {
    command
        .add_option("SOURCE", source.location, "A file, \"factory\" or a base address (http://, https://)")
        ->required();
    addKeyFile(command, source);
}

void addKeyFile(CLI::App& command, Source& source) {
    command
        .add_option("--key-file", source.keyFile,
                    "File with the key of the web service; the default is the environment variable "
                    "PAYLOAD_PROFILES_KEY")
        ->option_text("KEY-FILE");
}

ProfileList readSource(const Context& context, const Source& source) {
    return readProfiles(source.getName(), openSource(context, source));
}

} // namespace norel::Desktop::PayloadProfiles

#include "InMemoryTextFileStorage.h"
#include "ProfileLists.h"
#include "Sample.h"
#include "ScriptedHttpClient.h"
#include "norel/Desktop/Networking/Http/CurlHttpClient.h"
#include "norel/Desktop/Storage/DurableTextFileStorage.h"

#include <fstream>
#include <gmock/gmock.h>
#include <limits>
#include <regex>
#include <set>
#include <sstream>

/// docs/errors.md against what the library says and against its sources.
namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using Networking::Http::CurlHttpClient;
using Networking::Http::HttpClient;

const std::filesystem::path SOURCE = NOREL_SOURCE;
const auto serializer = std::make_shared<JsonProfileListSerializer>();

std::string readFile(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

using Failures = std::vector<std::function<void()>>;

/// Builds a builder that `change` has made invalid.
template <typename Builder>
std::function<void()> building(const std::function<void(Builder&)>& change) {
    return [change] {
        Builder builder;
        const Sample sample(builder);
        change(builder);
        builder.build();
    };
}

template <typename Builder>
std::function<void()> buildingOnly(const Builder& builder) {
    return [builder] { builder.build(); };
}

Failures brokenRules() {
    using Number = Parameter<double>::Builder;
    using Range = FieldOfViewRange::Builder;
    const auto view = [](double limit, bool isDefault) {
        return FieldOfView::Builder{{-limit, limit, "deg"}, {-limit, limit, "deg"}, isDefault};
    };
    return {
        buildingOnly(Number{2, -1, 1, 0, {}, 0.001, "sec"}),
        buildingOnly(Number{0, -1, 1, 2, {}, 0.001, "sec"}),
        buildingOnly(Number{0, -1, 1, 0, {{"slow", 2}}, 0.001, "sec"}),
        buildingOnly(Number{0, 1, -1, 0, {}, 0.001, "sec"}),
        buildingOnly(Number{0, -1, 1, 0, {}, 0.001, "s"}),
        buildingOnly(Number{0, -1, 1, 0, {}, 0.002, "sec"}),
        buildingOnly(Range{35, -35, "deg"}),
        buildingOnly(Range{-35, 35, "rad"}),
        buildingOnly(FieldOfViews::Builder{}),
        buildingOnly(FieldOfViews::Builder{{view(35, true), view(45, true)}}),
        buildingOnly(FieldOfViews::Builder{{view(35, true), view(35, false)}}),
        building<Camera::Builder>([](auto& camera) { camera.orientation = "left"; }),
        building<Cameras::Builder>([](auto& cameras) {
            for (auto& camera : cameras.listOfCameras)
                camera.orientation = "nadir";
        }),
        building<Imu::Builder>([](auto& imu) { imu.gnssStandardDeviation = "SD3cm"; }),
        building<Trajectory::Builder>([](auto& trajectory) { trajectory.stabilizedMount = "gimbal"; }),
        building<Georeferencing::Builder>([](auto& georeferencing) {
            georeferencing.boresightAngles.reset();
            georeferencing.calibrationDocument.reset();
        }),
        buildingOnly(LidarCoveragePreview::Builder{{0, 0, 1, 0, {}, 1, ""}}),
        buildingOnly(LidarCoveragePreview::Builder{{1, 0, 1, 0, {}, 1, ""}}),
        building<Lidar::Builder>([](auto& lidar) { lidar.alignment = "x y"; }),
        building<Profile::Builder>([](auto& profile) { profile.name = ""; }),
        building<Profile::Builder>([](auto& profile) { profile.product = ""; }),
    };
}

Failures unreadableDocuments() {
    const std::string document = readFile(SOURCE / "docs/examples/lidar.json");
    const auto reading = [](const std::string& text) { return [text] { serializer->deserialize(text); }; };
    std::string nested = "[";
    for (int i = 0; i < 100000; ++i)
        nested += "[[[[]]]],";
    nested += "[]]";
    return {
        reading(replaced(document, "\"imu_latency\"", "\"imu_delay\"")),
        reading(replaced(document, "\"alignment\": \"", "\"alignment\": 7, \"x\": \"")),
        reading(replaced(document, "\"creation_time\": \"", "\"creation_time\": \"on ")),
        reading("{}"),
        reading("[{\"id\": 1,]"),
        reading(std::string("[]\0", 3)),
        reading(std::string(101, '[')),
        reading(nested),
        [] {
            serializer->serialize(makeList({{1, "\xff"}}));
        },
        building<Profile::Builder>([](Profile::Builder& profile) {
            profile.lidar->imuLatency = {0, 0, std::numeric_limits<double>::infinity(), 0, {}, 1, ""};
            ProfileList list;
            Profile built = profile.build();
            list.add(built);
            serializer->serialize(list);
        }),
    };
}

Failures storageErrors() {
    const auto client = std::make_shared<Desktop::Test::ScriptedHttpClient>();
    const auto service =
        std::make_shared<ProfileListHttpStorage>("https://example.org/", client, "", serializer);
    const auto factory = std::make_shared<ProfileListDefaultProductsStorage>();
    const auto upgrade = [](const std::string& text) {
        const auto memory = std::make_shared<Desktop::Test::InMemoryTextFileStorage>();
        memory->write("profiles.json", text);
        ProfileUpgrade().upgradeToVersion(2, memory, "profiles.json",
                                          DefaultProducts::getSourceDocumentFromVersionInfo(2));
    };
    return {
        [] { Storage::DurableTextFileStorage().read("missing.json"); },
        [] {
            CurlHttpClient().send(HttpClient::Request{{}, "ftp://example.org/", "", ""});
        },
        [=] {
            client->answer = []() -> HttpClient::Response {
                throw HttpClient::HttpRequestFailed(
                    "cannot get https://example.org/: no connection within 10000 ms");
            };
            service->read();
        },
        [=] {
            client->answer = [] { return HttpClient::Response{401, "who are you?"}; };
            service->read();
        },
        [=] { service->write({}); },
        [=] { service->remove(); },
        [=] { factory->write({}); },
        [=] { factory->remove(); },
        [=] { upgrade(R"([{"product": "Korvane Delta"}])"); },
        [=] { upgrade(R"([{"product": "Korvane Alpha", "lidar": {"precision_enhancement": null}}])"); },
        [] { UseCase::DeleteProfile(nullptr); },
        [=] { UseCase::AddOrUpdateProfile(factory, nullptr); },
        [=] { UseCase::MergeProfileStorages(nullptr, factory); },
        [=] { UseCase::MergeProfileStorages(factory, nullptr); },
    };
}

/// The messages that the page quotes, each in a block of its own.
std::set<std::string> quotedMessages(const std::string& page) {
    static const std::regex block("```text\n([^]*?)\n```");
    std::set<std::string> messages;
    for (std::sregex_iterator found(page.begin(), page.end(), block), end; found != end; ++found)
        EXPECT_TRUE(messages.insert((*found)[1]).second) << (*found)[1];
    return messages;
}

TEST(ErrorsPage, QuotesWhatTheLibrarySays) {
    std::set<std::string> messages;
    for (const Failures& failures : {brokenRules(), unreadableDocuments(), storageErrors()})
        for (const auto& fail : failures)
            try {
                fail();
                ADD_FAILURE() << "no error after " << *messages.rbegin();
            } catch (const std::exception& error) {
                messages.insert(std::regex_replace(error.what(), std::regex(":[0-9]+\\]$"), ":LINE]"));
            }
    const std::string list = readFile(SOURCE / "docs/examples/camera-nadir.json");
    const std::string profile = list.substr(1, list.rfind(']') - 1); // its id is 4294967295
    const std::string odd =
        "[" + replaced(profile, "\"name\"", "\"colour\": 1, \"id\": 4294967295, \"name\"") + "," +
        replaced(profile, "4294967295", "7.5") + "," + replaced(profile, "4294967295", "7") + "]";
    for (const auto& finding : ProfileListValidator().validate(odd).findings)
        messages.insert(finding.message);
    const std::set<std::string> quoted = quotedMessages(readFile(SOURCE / "docs/errors.md"));
    for (const std::string& message : messages)
        EXPECT_TRUE(quoted.contains(message)) << "not quoted: " << message;
    for (const std::string& message : quoted)
        EXPECT_TRUE(messages.contains(message)) << "never said: " << message;
}

/// The string literals of the statements that raise an error.
std::vector<std::string> errorTexts(const std::string& source) {
    std::vector<std::string> texts;
    static const std::regex beginning("\\b(throw |fail\\(|violated\\(|RequestError\\()");
    for (std::sregex_iterator found(source.begin(), source.end(), beginning), end; found != end; ++found) {
        bool isInText = false;
        std::string text;
        for (auto i = static_cast<std::size_t>(found->position()); i < source.size(); ++i) {
            const char c = source[i];
            if (isInText && c == '\\') {
                text += source[++i] == 'n' ? '\n' : source[i];
            } else if (c == '"' && isInText) {
                texts.push_back(std::exchange(text, ""));
                isInText = false;
            } else if (isInText) {
                text += c;
            } else if (c == '"') {
                isInText = true;
            } else if (c == '\'') {
                i = source.find('\'', i + 1);
            } else if (c == ';' || c == '{') {
                break;
            }
        }
    }
    return texts;
}

TEST(ErrorsPage, MentionsEveryErrorOfTheSources) {
    const std::string page = std::regex_replace(readFile(SOURCE / "docs/errors.md"), std::regex("\\s+"), " ");
    std::size_t count = 0;
    for (const char* folder : {"domain/Payloads/src", "host/reference"})
        for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE / folder)) {
            const std::string name = entry.path().filename().string();
            if (!entry.is_regular_file() || name == "DocumentText.h") // whose errors are never shown
                continue;
            for (std::string text : errorTexts(readFile(entry.path()))) {
                const std::size_t begin = text.find_first_not_of(" \"\n");
                const std::size_t last = text.find_last_not_of(" \"\n");
                if (begin == std::string::npos || last - begin < 3)
                    continue;
                ++count;
                text = text.substr(begin, last - begin + 1);
                EXPECT_NE(page.find(text), std::string::npos) << name << ": " << text;
            }
        }
    EXPECT_GT(count, 50U);
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test

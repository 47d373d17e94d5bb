#include "InMemoryTextFileStorage.h"
#include "PlainTextFileStorage.h"
#include "ProfileLists.h"
#include "ScriptedHttpClient.h"

#include <fstream>
#include <gmock/gmock.h>
#include <random>
#include <regex>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using Desktop::Test::InMemoryTextFileStorage;
using Desktop::Test::ScriptedHttpClient;
using testing::ThrowsMessage;
using InvalidContent = ProfileListStorage::InvalidContent;
using CannotRead = ProfileListStorage::CannotReadProfileList;
using CannotWrite = ProfileListStorage::CannotWriteProfileList;
using HttpClient = Networking::Http::HttpClient;

const auto jsonSerializer = std::make_shared<JsonProfileListSerializer>();

/// A document whose only profile violates a rule of the model, with the message of that rule.
struct BrokenDocument {
    std::string text = jsonSerializer->serialize(makeList({{1, "name"}}));
    std::string message = "The \"name\" string cannot be empty.";

    BrokenDocument() { text.replace(text.find("\"name\": \"name\""), 14, "\"name\": \"\""); }
};

const std::string NO_VALUE =
    "[json.exception.parse_error.101] parse error at line 1, column 1: syntax error while "
    "parsing value - invalid literal; last read: '<'";

class ProfileListFileStorageTest : public testing::Test {
protected:
    ProfileListFileStorageTest() { std::filesystem::create_directory(folder); }
    ~ProfileListFileStorageTest() override { std::filesystem::remove_all(folder); }

    std::string content() const { return plain->read(file); }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                         ("norel-payloads-test-" + std::to_string(std::random_device()()));
    const std::filesystem::path file = folder / "profiles.json";
    const std::shared_ptr<InMemoryTextFileStorage> memory = std::make_shared<InMemoryTextFileStorage>();
    const std::shared_ptr<Storage::TextFileStorage> plain =
        std::make_shared<Desktop::Test::PlainTextFileStorage>();
};

TEST_F(ProfileListFileStorageTest, CreatesAMissingFileAndStoresItsListThere) {
    ProfileListFileStorage storage(file, plain, jsonSerializer);
    ASSERT_TRUE(std::filesystem::is_regular_file(file));
    EXPECT_EQ(content(), "");
    EXPECT_TRUE(storage.read() == ProfileList());
    const ProfileList list = makeList({{4, "b"}, {2, "a"}});
    storage.write(list);
    EXPECT_EQ(content(), jsonSerializer->serialize(list));
    EXPECT_TRUE(storage.read() == list);
    // The constructor keeps an existing file.
    EXPECT_TRUE(ProfileListFileStorage(file, plain, jsonSerializer).read() == list);
    std::ofstream(file, std::ios::binary) << "[]";
    EXPECT_TRUE(storage.read() == ProfileList()); // a change by another writer is read
    storage.remove();
    EXPECT_FALSE(std::filesystem::exists(file));
    storage.write(list);
    EXPECT_TRUE(storage.read() == list);
}

TEST_F(ProfileListFileStorageTest, KeepsWhatExistsAndReportsFailuresOnUse) {
    std::ofstream(file, std::ios::binary) << "<\r\n";
    ProfileListFileStorage storage(file, plain, jsonSerializer);
    EXPECT_THAT([&] { storage.read(); }, ThrowsMessage<InvalidContent>(NO_VALUE));
    EXPECT_EQ(content(), "<\r\n");
    const BrokenDocument broken;
    std::ofstream(file, std::ios::binary) << broken.text;
    EXPECT_THAT([&] { storage.read(); }, ThrowsMessage<CannotRead>(broken.message));
    EXPECT_EQ(content(), broken.text);

    EXPECT_NO_THROW(ProfileListFileStorage(folder, plain, jsonSerializer));
    ProfileListFileStorage nowhere(folder / "none" / "profiles.json", plain, jsonSerializer);
    EXPECT_THAT([&] { nowhere.read(); },
                ThrowsMessage<CannotRead>("cannot read " + (folder / "none" / "profiles.json").string()));
#ifndef _WIN32 // where a file with a name that long certainly does not exist
    try {
        ProfileListFileStorage(file / "inside a file", plain, jsonSerializer); // certainly does not exist
        ProfileListFileStorage(folder / std::string(5000, 'x'), plain, jsonSerializer);
        ADD_FAILURE();
    } catch (const std::filesystem::filesystem_error& error) {
        EXPECT_EQ(error.code(), std::errc::filename_too_long);
    }
#endif
}

TEST_F(ProfileListFileStorageTest, KeepsTheMessagesOfTheTextFileStorage) {
    ProfileListFileStorage storage(file, memory, jsonSerializer);
    memory->failRead = memory->failWrite =
        memory->failRemove = [] { throw std::runtime_error("\"full\"\n"); };
    EXPECT_THAT([&] { storage.read(); }, ThrowsMessage<CannotRead>("\"full\"\n"));
    EXPECT_THAT([&] { storage.write({}); }, ThrowsMessage<CannotWrite>("\"full\"\n"));
    EXPECT_THAT([&] { storage.remove(); },
                ThrowsMessage<ProfileListStorage::CannotRemoveProfileList>("\"full\"\n"));
    memory->failRead = memory->failWrite = memory->failRemove = [] { throw std::logic_error("odd"); };
    EXPECT_THAT([&] { storage.read(); }, ThrowsMessage<CannotRead>("odd"));
    EXPECT_THAT([&] { storage.write({}); }, ThrowsMessage<CannotWrite>("odd"));
    EXPECT_THAT([&] { storage.remove(); }, ThrowsMessage<std::logic_error>("odd"));
    memory->failRead = [] { throw 5; };
    EXPECT_THROW(storage.read(), int);
    memory->writes = 0;
    // A text that is not UTF-8 cannot be written as JSON.
    EXPECT_THAT(
        [&] {
            storage.write(makeList({{1, "\xff"}}));
        },
        ThrowsMessage<CannotWrite>("[json.exception.type_error.316] invalid UTF-8 byte at index 0: 0xFF"));
    EXPECT_EQ(memory->writes, 0);
}

template <typename Operation>
void expectUnreachable(const Operation& operation, const std::string& message, const std::string& file) {
    const auto withoutLine = [](const std::string& text) {
        return std::regex_replace(text, std::regex(":[1-9][0-9]*\\]$"), ":LINE]");
    };
    EXPECT_THAT(operation, ThrowsMessage<Utils::UnreachableCodeError>(testing::ResultOf(
                               withoutLine, message + " [Infrastructure/" + file + ":LINE]")));
}

TEST(ProfileListHttpStorage, SendsOneRequestPerRead) {
    for (const auto& [base, key] : {std::pair("https://host/", "secret"), std::pair("host", "")}) {
        const auto client = std::make_shared<ScriptedHttpClient>();
        client->answer = [] {
            return HttpClient::Response{204, jsonSerializer->serialize(makeList({{7, "a"}}))};
        };
        ProfileListHttpStorage storage(base, client, key, jsonSerializer);
        EXPECT_TRUE(client->requests.empty());
        EXPECT_TRUE(storage.read() == makeList({{7, "a"}}));
        ASSERT_EQ(client->requests.size(), 1U);
        EXPECT_EQ(static_cast<std::uint32_t>(client->requests[0].method), 0U);
        EXPECT_EQ(client->requests[0].url, std::string(base) + "api/processing/v1/payload");
        EXPECT_EQ(client->requests[0].key, key);
        client->answer = [] { return HttpClient::Response{200, ""}; };
        EXPECT_TRUE(storage.read() == ProfileList());
    }
}

TEST(ProfileListHttpStorage, ReportsEveryFailureAsAStorageError) {
    const auto client = std::make_shared<ScriptedHttpClient>();
    ProfileListHttpStorage storage("https://host/", client, "", jsonSerializer);
    const auto read = [&] { storage.read(); };
    client->answer = []() -> HttpClient::Response { throw HttpClient::HttpRequestFailed("no route"); };
    EXPECT_THAT(read, ThrowsMessage<CannotRead>("Cannot contact profile service; cause is \"no route\"."));
    client->answer = []() -> HttpClient::Response { throw std::logic_error("other"); };
    EXPECT_THAT(read, ThrowsMessage<CannotRead>("other"));
    for (const HttpClient::Response& response :
         {HttpClient::Response{404, "[]"}, {500, ""}, {301, "{"}, {0, ""}}) {
        client->answer = [&] { return response; };
        EXPECT_THAT(read, ThrowsMessage<CannotRead>(
                              "HTTP \"profile\" request was unsuccessful; cause is " +
                              Utils::ConvertToGenericString::convertToGenericString(response) + "."));
    }
    client->answer = [] { return HttpClient::Response{200, "<html>"}; };
    EXPECT_THAT(read, ThrowsMessage<InvalidContent>(NO_VALUE));
    const BrokenDocument broken;
    client->answer = [&] { return HttpClient::Response{200, broken.text}; };
    EXPECT_THAT(read, ThrowsMessage<CannotRead>(broken.message));
    client->answer = []() -> HttpClient::Response { throw 5; };
    EXPECT_THROW(storage.read(), int);

    const std::size_t requests = client->requests.size();
    expectUnreachable([&] { storage.write({}); },
                      "an unexpected ProfileListHttpStorage::write was called, storage is read only",
                      "ProfileListHttpStorage");
    expectUnreachable([&] { storage.remove(); },
                      "an unexpected ProfileListHttpStorage::remove was called, storage is not removable",
                      "ProfileListHttpStorage");
    EXPECT_EQ(client->requests.size(), requests);
}

TEST(ProfileListDefaultProductsStorage, IsReadOnly) {
    ProfileListDefaultProductsStorage storage;
    EXPECT_TRUE(storage.read() == storage.read());
    EXPECT_TRUE(storage.read() == jsonSerializer->deserialize(DefaultProducts::getSourceDocument()));
    expectUnreachable(
        [&] { storage.write({}); },
        "an unexpected ProfileListDefaultProductsStorage::write was called, storage is read only",
        "ProfileListDefaultProductsStorage");
    expectUnreachable(
        [&] { storage.remove(); },
        "an unexpected ProfileListDefaultProductsStorage::remove was called, storage is not removable",
        "ProfileListDefaultProductsStorage");
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test

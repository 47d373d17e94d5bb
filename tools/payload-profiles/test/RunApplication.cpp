#include "RunApplication.h"

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

namespace fs = std::filesystem;
using DataFormat::Json;

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace

ApplicationTest::ApplicationTest()
    : folder(fs::temp_directory_path() / ("payload-profiles-test-" + std::to_string(::getpid()))) {
    fs::create_directories(folder / "captured");
}

ApplicationTest::~ApplicationTest() { fs::remove_all(folder); }

int ApplicationTest::run(const std::string& command, const std::string& before) const {
    const std::string line = "cd '" + folder.string() + "' && exec >captured/output 2>captured/messages; " +
                             before + " '" PAYLOAD_PROFILES "' " + command;
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void ApplicationTest::expect(const std::string& command, int exitCode, const std::string& output,
                             const std::string& messages, const std::string& before) const {
    EXPECT_EQ(run(command, before), exitCode) << command;
    EXPECT_EQ(readFile(folder / "captured/output"), output) << command;
    EXPECT_EQ(readFile(folder / "captured/messages"), messages) << command;
}

std::string ApplicationTest::runWell(const std::string& command, const std::string& before) const {
    EXPECT_EQ(run(command, before), 0) << command;
    EXPECT_EQ(readFile(folder / "captured/messages"), "") << command;
    return readFile(folder / "captured/output");
}

std::string ApplicationTest::failure(const std::string& subject, const std::string& message) {
    return "payload-profiles: " + subject + ": " + message + '\n';
}

void ApplicationTest::write(const std::string& file, const std::string& text) const {
    std::ofstream(folder / file, std::ios::binary) << text;
}

std::string ApplicationTest::read(const std::string& file) const { return readFile(folder / file); }

std::string ApplicationTest::listFiles() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().filename() != "captured")
            names.insert(entry.path().filename());
    std::string list;
    for (const std::string& name : names)
        list += name + ' ';
    return list;
}

std::string replaced(std::string text, const std::string& part, const std::string& replacement) {
    EXPECT_NE(text.find(part), std::string::npos) << part;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += replacement.size())
        text.replace(at, part.size(), replacement);
    return text;
}

std::string makeDocument(unsigned int id) {
    const Json factory = Json::fromString(Domain::Payloads::DefaultProducts::getSourceDocument());
    for (auto element = factory.begin(); element != factory.end(); ++element)
        if (const Json profile = *element; profile.getValue("id").as<unsigned int>() == id)
            return Json(std::vector<Json>{profile}).toString(4);
    ADD_FAILURE() << "there is no factory profile " << id;
    return {};
}

} // namespace norel::Desktop::PayloadProfiles::Test

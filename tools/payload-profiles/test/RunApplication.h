#pragma once

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace norel::Desktop::PayloadProfiles::Test {

/// A new folder in which each test runs the application on files of its own.
class ApplicationTest : public testing::Test {
protected:
    ApplicationTest() { std::filesystem::create_directories(folder / "captured"); }
    ~ApplicationTest() override { std::filesystem::remove_all(folder); }

    /// Runs "payload-profiles COMMAND", a shell's command line that may redirect, and expects what it writes
    /// to its standard output and its standard error. `before` goes before it, such as a variable to set.
    void expect(const std::string& command, int exitCode, const std::string& output,
                const std::string& messages = "", const std::string& before = "") const {
        EXPECT_EQ(run(command, before), exitCode) << command;
        EXPECT_EQ(read("captured/output"), output) << command;
        EXPECT_EQ(read("captured/messages"), messages) << command;
    }

    /// Runs it and expects success; the result is its output.
    std::string runWell(const std::string& command, const std::string& before = "") const {
        EXPECT_EQ(run(command, before), 0) << command;
        EXPECT_EQ(read("captured/messages"), "") << command;
        return read("captured/output");
    }

    /// A failure of the application that names a file or address, as it goes to the standard error.
    static std::string failure(const std::string& subject, const std::string& message) {
        return "payload-profiles: " + subject + ": " + message + '\n';
    }

    void write(const std::string& file, const std::string& text) const {
        std::ofstream(folder / file, std::ios::binary) << text;
    }
    std::string read(const std::string& file) const {
        std::ifstream stream(folder / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// The names of the files in the folder, with a blank after each.
    std::string listFiles() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().filename() != "captured")
                names.insert(entry.path().filename());
        std::string list;
        for (const std::string& name : names)
            list += name + ' ';
        return list;
    }

private:
    int run(const std::string& command, const std::string& before) const {
        const std::string line = "cd '" + folder.string() +
                                 "' && exec >captured/output 2>captured/messages; "
                                 "unset NO_COLOR PAYLOAD_PROFILES_KEY; " +
                                 before + " '" PAYLOAD_PROFILES "' " + command;
        const int status = std::system(line.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("payload-profiles-test-" + std::to_string(::getpid()));
};

inline std::string replaced(std::string text, const std::string& part, const std::string& replacement) {
    EXPECT_NE(text.find(part), std::string::npos) << part;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += replacement.size())
        text.replace(at, part.size(), replacement);
    return text;
}

/// A document with the factory profile of that id alone.
inline std::string makeDocument(unsigned int id) {
    using DataFormat::Json;
    for (const Json& profile : Json::fromString(Domain::Payloads::DefaultProducts::getSourceDocument()))
        if (profile.getValue("id").as<unsigned int>() == id)
            return Json(std::vector<Json>{profile}).toString(4);
    ADD_FAILURE() << "there is no factory profile " << id;
    return {};
}

} // namespace norel::Desktop::PayloadProfiles::Test

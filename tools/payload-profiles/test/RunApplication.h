#pragma once

#include "RunCommand.h"
#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "text/Utf8Path.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <set>
#include <string>

namespace norel::Desktop::PayloadProfiles::Test {

/// Runs the application on files in a new folder.
class ApplicationTest : public testing::Test {
protected:
    ApplicationTest() { std::filesystem::create_directories(folder / "captured"); }
    ~ApplicationTest() override { std::filesystem::remove_all(folder); }

    /// Runs "BEFORE payload-profiles COMMAND" (see runCommand) and checks its exit code, standard output and
    /// standard error.
    void expect(const std::string& command, int exitCode, const std::string& output,
                const std::string& messages = "", const std::string& before = "") const {
        EXPECT_EQ(run(command, before), exitCode) << command;
        EXPECT_EQ(read("captured/output"), output) << command;
        EXPECT_EQ(read("captured/messages"), messages) << command;
    }

    /// Runs it and checks that it succeeds; the result is its standard output.
    std::string runWell(const std::string& command, const std::string& before = "") const {
        EXPECT_EQ(run(command, before), 0) << command;
        EXPECT_EQ(read("captured/messages"), "") << command;
        return read("captured/output");
    }

    /// Runs it; the result is its exit code.
    int run(const std::string& command, const std::string& before = "") const {
        return runCommand(folder, command, before, "captured/output", "captured/messages");
    }

    /// An error message about a file or address, as it is written to the standard error.
    static std::string failure(const std::string& subject, const std::string& message) {
        return "payload-profiles: " + subject + ": " + message + '\n';
    }

    void write(const std::string& file, const std::string& text) const {
        std::ofstream(folder / Text::makePath(file), std::ios::binary) << text;
    }
    std::string read(const std::string& file) const {
        std::ifstream stream(folder / Text::makePath(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// Makes a symbolic link, or a file with that text where the standard library cannot make links.
    void createLink(const std::string& target, const std::string& link) const {
        std::error_code error;
        std::filesystem::create_symlink(target, folder / link, error);
        if (error)
            write(link, target);
    }

    /// The names of the files in the folder, each followed by a space.
    std::string listFiles() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            if (entry.path().filename() != "captured")
                names.insert(Text::toUtf8(entry.path().filename()));
        std::string list;
        for (const std::string& name : names)
            list += name + ' ';
        return list;
    }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                         ("payload-profiles-test-" + std::to_string(std::random_device()()));
};

inline std::string replaced(std::string text, const std::string& part, const std::string& replacement) {
    EXPECT_NE(text.find(part), std::string::npos) << part;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += replacement.size())
        text.replace(at, part.size(), replacement);
    return text;
}

/// A document that contains only the factory profile with this id.
inline std::string makeDocument(unsigned int id) {
    using DataFormat::Json;
    for (const Json& profile : Json::fromString(Domain::Payloads::DefaultProducts::getSourceDocument()))
        if (profile.getValue("id").as<unsigned int>() == id)
            return Json(std::vector<Json>{profile}).toString(4);
    ADD_FAILURE() << "there is no factory profile " << id;
    return {};
}

} // namespace norel::Desktop::PayloadProfiles::Test

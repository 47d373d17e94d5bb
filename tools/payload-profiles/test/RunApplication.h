#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace norel::Desktop::PayloadProfiles::Test {

/// A new folder in which each test runs the application on files of its own.
class ApplicationTest : public testing::Test {
protected:
    ApplicationTest();
    ~ApplicationTest() override;

    /// Runs "payload-profiles COMMAND", a shell's command line that may redirect, and expects what it writes
    /// to its standard output and its standard error. `before` goes before it, such as a variable to set.
    void expect(const std::string& command, int exitCode, const std::string& output,
                const std::string& messages = "", const std::string& before = "") const;

    /// Runs it and expects success; the result is its output.
    std::string runWell(const std::string& command, const std::string& before = "") const;

    /// A failure of the application that names a file or address, as it goes to the standard error.
    static std::string failure(const std::string& subject, const std::string& message);

    void write(const std::string& file, const std::string& text) const;
    std::string read(const std::string& file) const;
    bool exists(const std::string& file) const { return std::filesystem::exists(folder / file); }

    /// The names of the files in the folder, with a blank after each.
    std::string listFiles() const;

private:
    int run(const std::string& command, const std::string& before) const;

    std::filesystem::path folder;
};

std::string replaced(std::string text, const std::string& part, const std::string& replacement);

/// A document with the factory profile of that id alone.
std::string makeDocument(unsigned int id);

} // namespace norel::Desktop::PayloadProfiles::Test

#pragma once

#include "norel/Desktop/Storage/TextFileStorage.h"

#include <filesystem>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Test {

/// Files in memory, with the number of calls of read and write. Each operation first calls its `fail...`
/// function, whose exception leaves the files unchanged.
struct InMemoryTextFileStorage : Storage::TextFileStorage {
    std::string read(const std::filesystem::path& path) override {
        ++reads;
        failRead();
        const auto file = files.find(path);
        if (file == files.end())
            throw std::runtime_error("there is no file " + path.string());
        return file->second;
    }

    void remove(const std::filesystem::path& path) override {
        failRemove();
        files.erase(path);
    }

    void write(const std::filesystem::path& path, const std::string& text) override {
        ++writes;
        failWrite();
        files[path] = text;
    }

    std::map<std::filesystem::path, std::string> files;
    std::function<void()> failRead = [] {}, failRemove = [] {}, failWrite = [] {};
    int reads = 0, writes = 0;
};

} // namespace norel::Desktop::Test

#pragma once

#include "norel/Desktop/Storage/TextFileStorage.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Test {

/// Files of the file system, read and written as simply as can be.
struct PlainTextFileStorage : Storage::TextFileStorage {
    std::string read(const std::filesystem::path& path) override {
        std::ifstream file(path, std::ios::binary);
        if (!file)
            throw std::runtime_error("cannot read " + path.string());
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void remove(const std::filesystem::path& path) override { std::filesystem::remove(path); }

    void write(const std::filesystem::path& path, const std::string& text) override {
        if (!(std::ofstream(path, std::ios::binary) << text << std::flush))
            throw std::runtime_error("cannot write " + path.string());
    }
};

} // namespace norel::Desktop::Test

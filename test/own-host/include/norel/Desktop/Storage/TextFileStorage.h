#pragma once

#include <filesystem>
#include <string>

namespace norel::Desktop::Storage {

struct TextFileStorage {
    virtual ~TextFileStorage() = default;
    virtual std::string read(const std::filesystem::path& path) = 0;
    virtual void remove(const std::filesystem::path& path) = 0;
    virtual void write(const std::filesystem::path& path, const std::string& text) = 0;
};

} // namespace norel::Desktop::Storage

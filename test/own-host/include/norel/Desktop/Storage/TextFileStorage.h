#pragma once

#include <filesystem>
#include <string>

namespace norel::Desktop::Storage {

class TextFileStorage {
public:
    virtual ~TextFileStorage() = default;
    virtual std::string read(const std::filesystem::path& path) = 0;
    virtual void remove(const std::filesystem::path& path) = 0;
    virtual void write(const std::filesystem::path& path, const std::string& text) = 0;
};

inline constexpr bool IS_OWN = true;

} // namespace norel::Desktop::Storage

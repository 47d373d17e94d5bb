#pragma once

#include "norel/Desktop/Storage/Export.h"

#include <filesystem>
#include <string>

namespace norel::Desktop::Storage {

/// Whole text files; implemented by the application. Failures are exceptions, those of `read` and `write`
/// derived from std::exception and those of `remove` from std::runtime_error: only these become storage
/// errors, others pass through the library. The library calls a store from the thread that calls the library.
class NOREL_STORAGE_EXPORT TextFileStorage {
public:
    virtual ~TextFileStorage();

    /// The whole text of the file; an empty file gives an empty text.
    virtual std::string read(const std::filesystem::path& path) = 0;

    /// Removes the file.
    virtual void remove(const std::filesystem::path& path) = 0;

    /// Replaces the file's whole content by `text`, making the file when there is none. A failure leaves
    /// the file as it was.
    virtual void write(const std::filesystem::path& path, const std::string& text) = 0;

protected:
    TextFileStorage() = default;
    TextFileStorage(const TextFileStorage&) = default;
    TextFileStorage& operator=(const TextFileStorage&) = default;
};

} // namespace norel::Desktop::Storage

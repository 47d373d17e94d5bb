#pragma once

#include "norel/Desktop/Storage/Export.h"

#include <filesystem>
#include <string>

/// Text files.
namespace norel::Desktop::Storage {

/// Reads and writes whole text files; implemented by the application. Failures are exceptions, those of
/// `read` and `write` derived from std::exception and those of `remove` from std::runtime_error: only these
/// become storage errors, others pass through the library. The library calls a store in the thread that
/// called the library.
class NOREL_STORAGE_EXPORT TextFileStorage {
public:
    virtual ~TextFileStorage();

    /// Returns the whole text of the file, which is empty for an empty file.
    virtual std::string read(const std::filesystem::path& path) = 0;

    /// Removes the file.
    virtual void remove(const std::filesystem::path& path) = 0;

    /// Replaces the file's whole content by `text`; creates a file that does not exist. A failure leaves the
    /// file as it was.
    virtual void write(const std::filesystem::path& path, const std::string& text) = 0;

protected:
    TextFileStorage() = default;
    TextFileStorage(const TextFileStorage&) = default;
    TextFileStorage& operator=(const TextFileStorage&) = default;
};

} // namespace norel::Desktop::Storage

#pragma once

#include "norel/Desktop/Storage/TextFileStorage.h"

namespace norel::Desktop::Storage {

/// Text files of the file system, replaced so that a reader, or a crash at any instant, finds the old text or the new
/// one, never a mixture; a write returns when the new text is durable.
///
/// Every operation follows symbolic links but `remove`, which removes the link itself. Anything but a regular
/// file (a directory, a FIFO, a device) is refused. A replaced file keeps its mode; a new one gets what the caller's
/// umask allows.
///
/// Failures are std::system_error, whose text names the operation, the path and the system's reason; the file is then
/// as it was before, and no temporary file is left. Several threads may share one store; of two writers of one
/// file the last one wins.
class NOREL_STORAGE_EXPORT DurableTextFileStorage : public TextFileStorage {
public:
    std::string read(const std::filesystem::path& path) override;
    void remove(const std::filesystem::path& path) override;
    void write(const std::filesystem::path& path, const std::string& text) override;
};

} // namespace norel::Desktop::Storage

#pragma once

#include "norel/Desktop/Storage/TextFileStorage.h"

namespace norel::Desktop::Storage {

/// Text files of the file system, replaced so that a reader, or a crash at any instant, finds the old text or
/// the new one, never a mixture; a write or removal returns when it is durable.
///
/// Every operation follows symbolic links but `remove`, which removes the link itself; a write through a link
/// that leads nowhere makes the file that it names. Anything but a regular file (a directory, a FIFO, a
/// device) is refused, and so are writing to a file that the caller may not write and removing what is not
/// there.
///
/// A new file gets the mode that the caller's umask allows. A replaced file keeps its mode, and its owner and
/// group where the caller may give them away (where not, its set-user-ID and set-group-ID bits go). It is a
/// new file under the old name: other hard links keep the old text, and access control lists are not carried
/// over. The caller needs to be allowed to read and to write the folder, which for a moment holds a second
/// file ".norel-*.tmp".
///
/// Failures of the system are std::system_error, whose text names the operation, the path and the system's
/// reason; the file is then as it was before, and no temporary file is left. The one exception says so in its
/// text: when the folder cannot be made durable at the end, the new text is in place (or the file gone), and
/// only a crash may bring the old one back.
///
/// Several threads may share one store; of two writers of one file the last one wins.
class NOREL_STORAGE_EXPORT DurableTextFileStorage : public TextFileStorage {
public:
    std::string read(const std::filesystem::path& path) override;
    void remove(const std::filesystem::path& path) override;
    void write(const std::filesystem::path& path, const std::string& text) override;
};

} // namespace norel::Desktop::Storage

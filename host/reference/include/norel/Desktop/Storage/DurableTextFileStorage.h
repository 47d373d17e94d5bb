#pragma once

#include "norel/Desktop/Storage/TextFileStorage.h"

#include <functional>
#include <memory>

namespace norel::Desktop::Storage {

class SystemCalls;

/// Text files of the file system. A file is replaced as a whole: a reader, or a crash at any instant, finds
/// the old text or the new one, never a mixture. Writing, creating and removing return when the change is
/// durable, as far as the file system can make it so.
///
/// `read` and `write` follow symbolic links; a write through a link that leads nowhere creates the file that
/// it names. `remove` removes the link itself. Anything but a regular file (a directory, a FIFO, a device) is
/// refused, and so are writing to a file that the caller may not write and removing one that does not exist.
///
/// Access: a new file gets the mode that the caller's umask, or the default access control list of its
/// folder, allows. A replaced file keeps its mode, owner, group, POSIX access control list and extended
/// attributes. What the system does not let the caller set is left out, and no user but the new owner gets
/// a permission that they did not have:
/// - without the owner or the group, the set-user-ID and set-group-ID bits are cleared;
/// - without the owner, nobody has more rights than the owner had;
/// - without the group, the new group and all others have the rights that both the group and others had;
/// - without the access control list, or without the group of a file that has one, only the owner keeps all
///   rights; the group, if kept, keeps those that the list gave all its members, and others have none.
/// Not carried over are other hard links, which keep the old text, time stamps, access control lists of other
/// kinds (NFSv4), which the mode replaces, and the attributes security.capability, security.ima and
/// security.evm, which hold for the old text. On systems other than Linux and Windows access control lists
/// and extended attributes are ignored.
///
/// On Windows a replaced file keeps its access control list, and whether it is hidden, encrypted, indexed, or
/// of the system. Not carried over are its owner, other hard links, time stamps, audit rules, compression and
/// further streams. A file that others have open is replaced or removed if they share deleting it; else the
/// store waits for them for up to a second. Read-only files, the names of devices ("NUL.json") and streams
/// ("file:stream") are refused, and so is a write through a link that leads nowhere. Paths may be longer than
/// 260 characters.
///
/// The caller needs to be allowed to read and to write the folder, which for a moment holds a second file
/// ".norel-*.tmp". The next write of the same file removes those that killed writers left, once they are an
/// hour old.
///
/// Failures of the system are std::system_error, whose text names the operation, the path and the system's
/// reason. Its category is std::generic_category() for every error that POSIX has, on Windows too, where all
/// others have std::system_category(). The file is then as it was before, and no temporary file is left. The
/// one exception says so in its text: when the folder cannot be made durable at the end, the change is in
/// place, and only a crash may undo it.
///
/// Several threads may share a store if they may call its handler at the same time. Of two writers of one
/// file, the last one wins.
class NOREL_STORAGE_EXPORT DurableTextFileStorage : public TextFileStorage {
public:
    /// Takes a sentence, such as: the owner of "profiles.json" is not carried over: Operation not permitted
    using NoticeHandler = std::function<void(const std::string& notice)>;

    /// The handler, if there is one, is called by `write` and `create`, in their thread, for each property
    /// that is not carried over, time stamps and the three attributes excepted. The file is not yet in place
    /// then: an exception of the handler leaves everything as it was and reaches the caller.
    explicit DurableTextFileStorage(NoticeHandler onNotCarriedOver = {});

    std::string read(const std::filesystem::path& path) override;
    void remove(const std::filesystem::path& path) override;
    void write(const std::filesystem::path& path, const std::string& text) override;

    /// Creates the file, which appears with its whole text. Fails with the error EEXIST when anything has the
    /// name, even a symbolic link that leads nowhere; of two callers at once one succeeds.
    void create(const std::filesystem::path& path, const std::string& text);

    /// The same, with the access of the regular file `original`, which the caller may read, as if the new
    /// file replaced it: for a backup, which must not be open to anyone whom the original is closed to.
    void create(const std::filesystem::path& path, const std::string& text,
                const std::filesystem::path& original);

protected:
    /// For tests, which let system calls fail.
    DurableTextFileStorage(NoticeHandler onNotCarriedOver, std::shared_ptr<SystemCalls> systemCalls);

private:
    void createFile(const std::filesystem::path& path, const std::string& text,
                    const std::filesystem::path* original);

    NoticeHandler noticeHandler;
    std::shared_ptr<SystemCalls> system;
};

} // namespace norel::Desktop::Storage

#include "StorageTest.h"
#include "posix/SystemCalls.h"

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <grp.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <tuple>
#include <unistd.h>

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct TestCalls : SystemCalls {
    using SystemCalls::longestWrite;

    /// Called before every system call; returns the error that it is to fail with, or 0.
    std::function<int(std::string_view call, int file, const std::string& name)> onCall;

private:
    int before(const char* call, int file, const char* name) override {
        return onCall ? onCall(call, file, name) : 0;
    }
};

struct TestStorage : DurableTextFileStorage {
    TestStorage(NoticeHandler handler, std::shared_ptr<TestCalls> calls)
        : DurableTextFileStorage(std::move(handler), std::move(calls)) {}
};

/// Runs the operation with a user's rights; only root can.
void runAs(uid_t user, gid_t group, const std::function<void()>& operation) {
    const gid_t formerGroup = ::getegid();
    EXPECT_EQ(::setgroups(0, nullptr) + ::setegid(group) + ::seteuid(user), 0);
    operation();
    EXPECT_EQ(::seteuid(0) + ::setegid(formerGroup), 0);
}

constexpr unsigned char OWNER = 1, USER = 2, GROUP = 4, MASK = 16, OTHERS = 32;
constexpr char LIST[] = "system.posix_acl_access";

struct ListEntry {
    unsigned char tag, permissions;
    int id = -1;
};

std::string makeList(const std::vector<ListEntry>& entries) {
    std::string list("\2\0\0\0", 4);
    for (const auto& [tag, permissions, id] : entries) {
        list += {static_cast<char>(tag), '\0', static_cast<char>(permissions), '\0'};
        for (const int shift : {0, 8, 16, 24})
            list += static_cast<char>(id >> shift & 0xff);
    }
    return list;
}

/// False when the file system has no such attributes.
bool setAttribute(const fs::path& path, const char* name, const std::string& value) {
    const int result = ::setxattr(path.c_str(), name, value.data(), value.size(), 0);
    EXPECT_TRUE(result == 0 || errno == ENOTSUP);
    return result == 0;
}

std::string attributeOf(const fs::path& path, const char* name) {
    std::string value(1000, '\0');
    const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
    return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
}

struct stat statusOf(int file) {
    struct stat status {};
    EXPECT_EQ(::fstat(file, &status), 0);
    return status;
}

mode_t modeOf(const fs::path& path) { return static_cast<mode_t>(fs::status(path).permissions()); }

struct PosixStorageTest : StorageTest {
    ~PosixStorageTest() override { ::umask(formerMask); }

    void expectFailure(const std::string& verb, const fs::path& path, const std::string& reason) {
        StorageTest::expectFailure(storage, verb, path, reason);
    }

    /// What the notices are to say of the file.
    std::string notCarriedOver(const std::string& what, int error) const {
        return what + " of \"" + file.string() +
               "\" is not carried over: " + std::generic_category().message(error);
    }

    const mode_t formerMask = ::umask(022);
    const std::shared_ptr<TestCalls> calls = std::make_shared<TestCalls>();
    TestStorage storage{keepNotice, calls};
};

TEST_F(PosixStorageTest, SyncsTheTextBeforeTheRenameAndTheFolderAfterwards) {
    std::vector<std::string> log;
    calls->onCall = [&](std::string_view call, int synced, const std::string&) {
        if (call == "fsync")
            log.push_back((S_ISDIR(statusOf(synced).st_mode) ? "folder " : "file ") + textOf(file));
        return 0;
    };
    storage.write(file, "new");
    storage.remove(file);
    storage.create(file, "newer");
    EXPECT_THAT(log, ElementsAre("file old", "folder new", "folder none", "file none", "folder newer"));
}

TEST_F(PosixStorageTest, EveryFailureOfASystemCallLeavesTheOldTextOrTheNewOne) {
    const std::string list = makeList({{OWNER, 6}, {USER, 6, 4321}, {GROUP, 4}, {MASK, 6}, {OTHERS, 0}});
    const fs::path made = folder / "made";
    const struct {
        std::string verb;
        fs::path path;
        std::string before, after;
        std::function<void()> run;
    } operations[] = {{"read", file, "old", "old", [&] { storage.read(file); }},
                      {"write", file, "old", "new", [&] { storage.write(file, "new"); }},
                      {"write", made, "none", "new", [&] { storage.write(made, "new"); }},
                      {"create", made, "none", "new", [&] { storage.create(made, "new"); }},
                      {"create", made, "none", "new", [&] { storage.create(made, "new", file); }},
                      {"remove", file, "old", "none", [&] { storage.remove(file); }}};
    calls->longestWrite = 1;
    for (const int error : {EINTR, EIO, ENOSPC, EINVAL, EPERM})
        for (const auto& [verb, path, before, after, run] : operations)
            for (int failing = 0, count = 0; count >= failing; ++failing) {
                fs::remove(made);
                fs::remove(file);
                std::ofstream(file) << "old";
                const bool hasList = setAttribute(file, LIST, list);
                std::string last, message;
                count = 0;
                calls->onCall = [&](std::string_view call, int, const std::string&) {
                    last = count <= failing ? call : last;
                    return count++ == failing ? error : 0;
                };
                try {
                    run();
                } catch (const std::system_error& failure) {
                    message = failure.what();
                }
                SCOPED_TRACE(verb + ", " + std::generic_category().message(error) + " from " + last);
                if (!message.empty()) {
                    EXPECT_NE(error, EINTR);
                    EXPECT_THAT(message, testing::MatchesRegex(
                                             "cannot " + verb + " \"" + path.string() +
                                             "\"( with the access of \"[^\"]*\")?(( for good)?: [^:]*)?: " +
                                             std::generic_category().message(error)));
                }
                const bool isDone = message.empty() || message.find(" for good: ") != std::string::npos;
                EXPECT_EQ(textOf(path), isDone ? after : before);
                EXPECT_THAT(names(), testing::Each(testing::Not(testing::StartsWith(".norel-"))));
                if (hasList && fs::exists(file)) {
                    EXPECT_TRUE(attributeOf(file, LIST) == list || modeOf(file) == 0640U);
                }
            }
}

TEST_F(PosixStorageTest, NoTextIsReadableBeyondItsMode) {
    mode_t whileWriting = 0;
    calls->onCall = [&](std::string_view call, int written, const std::string&) {
        if (call == "write")
            whileWriting = statusOf(written).st_mode & 07777U;
        return 0;
    };
    const uid_t owner = ::geteuid() == 0 ? 4321 : ::geteuid(); // only root gives files away
    const gid_t group = ::geteuid() == 0 ? 8765 : ::getegid();
    for (const mode_t mask : {0000U, 0022U, 0077U, 0177U}) {
        ::umask(mask);
        fs::remove(file);
        storage.write(file, "new");
        EXPECT_EQ(modeOf(file), 0666U & ~mask);
        EXPECT_EQ(whileWriting & mask, 0U);
        for (const mode_t mode : {0600U, 0640U, 0666U, 04750U}) {
            const fs::path backup = folder / "backup";
            ASSERT_EQ(::chown(file.c_str(), owner, group) + ::chmod(file.c_str(), mode), 0);
            storage.write(file, "newer");
            EXPECT_EQ(whileWriting & ~mode, 0U);
            storage.create(backup, "newest", file);
            EXPECT_EQ(whileWriting & ~mode, 0U);
            for (const fs::path& path : {file, backup}) {
                struct stat status {};
                ASSERT_EQ(::stat(path.c_str(), &status), 0);
                EXPECT_EQ(std::tuple(status.st_mode & 07777U, status.st_uid, status.st_gid),
                          std::tuple(mode, owner, group));
            }
            fs::remove(backup);
        }
    }
    EXPECT_THAT(notices, ElementsAre());
}

TEST_F(PosixStorageTest, KeepsAccessControlListAndAttributes) {
    const std::string list = makeList({{OWNER, 6}, {USER, 6, 4321}, {GROUP, 0}, {MASK, 6}, {OTHERS, 0}});
    std::ofstream(folder / "sub/plain") << "old";
    if (!setAttribute(file, LIST, list) || !setAttribute(file, "user.note", "x"))
        GTEST_SKIP() << "the file system has no access control lists";
    storage.write(file, "new");
    storage.create(folder / "backup", "old", file);
    for (const fs::path& path : {file, folder / "backup"}) {
        EXPECT_EQ(attributeOf(path, LIST), list);
        EXPECT_EQ(attributeOf(path, "user.note"), "x");
    }
    // A folder's default list is for new files alone.
    setAttribute(folder / "sub", "system.posix_acl_default", list);
    storage.write(folder / "sub/plain", "new");
    EXPECT_EQ(attributeOf(folder / "sub/plain", LIST), "none");
    EXPECT_EQ(modeOf(folder / "sub/plain"), 0644U);
    EXPECT_THAT(notices, ElementsAre());

    const auto writeRefused = [&](const std::string& refused) {
        setAttribute(file, LIST, makeList({{OWNER, 6}, {USER, 3, 4321}, {GROUP, 5}, {MASK, 6}, {OTHERS, 4}}));
        calls->onCall = [&](std::string_view call, int, const std::string& name) {
            return call == "fsetxattr" && name == refused ? ENOTSUP : 0;
        };
        storage.write(file, "newer");
        return modeOf(file);
    };
    EXPECT_EQ(writeRefused("user.note"), 0664U);
    EXPECT_EQ(writeRefused(LIST), 0600U);
    EXPECT_THAT(notices, ElementsAre(notCarriedOver("the extended attribute \"user.note\"", ENOTSUP),
                                     notCarriedOver("the access control list", ENOTSUP)));
    calls->onCall = [&](std::string_view call, int, const std::string&) {
        if (call == "flistxattr") // the system gives the new file the attribute by itself
            setAttribute(folder / *names().begin(), "user.note", "x");
        return call == "fsetxattr" ? ENOTSUP : 0;
    };
    setAttribute(file, "user.note", "x");
    storage.write(file, "newest");
    EXPECT_EQ(notices.size(), 2U);
}

TEST_F(PosixStorageTest, NobodyGainsAccessToAnothersFile) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can act as another user";
    constexpr uid_t user = 1234;
    ASSERT_EQ(::chmod(folder.c_str(), 0755) + ::chmod(file.c_str(), 0666), 0);
    runAs(user, 5678,
          [&] { expectFailure("write", file, ": cannot create a file in its folder: Permission denied"); });
    ASSERT_EQ(::chmod(folder.c_str(), 0777) + ::chmod(file.c_str(), 0644), 0);
    runAs(user, 5678, [&] { expectFailure("write", file, ": Permission denied"); });
    const std::string list = makeList({{OWNER, 6}, {USER, 6, user}, {GROUP, 0}, {MASK, 6}, {OTHERS, 0}});
    const std::string wide = makeList({{OWNER, 6}, {USER, 7, 4321}, {GROUP, 6}, {MASK, 7}, {OTHERS, 4}});
    const std::string limited = makeList({{OWNER, 6}, {USER, 6, 4321}, {GROUP, 6}, {MASK, 6}, {OTHERS, 4}});
    const std::string noOwner = notCarriedOver("the owner", EPERM);
    const std::string noGroup = notCarriedOver("the group", EPERM);
    const std::string noList = notCarriedOver("the access control list", EPERM);
    const struct {
        mode_t mode;
        std::string list;
        gid_t group; // of the file; the user is in 5678
        mode_t after;
        std::string listAfter;
        std::vector<std::string> notices;
    } cases[] = {{0666, "", 8765, 0666, "none", {noGroup, noOwner}},
                 {06666, "", 8765, 0666, "none", {noGroup, noOwner}},
                 {04664, "", 5678, 0664, "none", {noOwner}},
                 {0466, "", 5678, 0444, "none", {noOwner}},
                 {0646, "", 8765, 0644, "none", {noGroup, noOwner}},
                 {0676, "", 8765, 0666, "none", {noGroup, noOwner}},
                 {0, list, 8765, 0600, "none", {noGroup, noOwner, noList}},
                 {0, wide, 5678, 0664, limited, {noOwner}}};
    for (const auto& [mode, before, group, after, listAfter, expected] : cases) {
        fs::remove(file);
        std::ofstream(file) << "old";
        ASSERT_EQ(::chown(file.c_str(), 0, group), 0);
        if (before.empty() ? ::chmod(file.c_str(), mode) != 0 : !setAttribute(file, LIST, before))
            continue;
        fs::remove(folder / "backup");
        for (const fs::path& path : {folder / "backup", file}) {
            notices.clear();
            runAs(user, 5678,
                  [&] { path == file ? storage.write(file, "new") : storage.create(path, "new", file); });
            EXPECT_EQ(textOf(path), "new");
            EXPECT_EQ(modeOf(path), after);
            EXPECT_EQ(attributeOf(path, LIST), listAfter);
            EXPECT_EQ(notices, expected);
        }
    }
    EXPECT_THAT(names(), ElementsAre("backup", "file", "sub"));
}

TEST_F(PosixStorageTest, FollowsLinksAndKeepsThem) {
    const std::pair<fs::path, fs::path> links[] = {{folder / "one", "file"},
                                                   {folder / "sub/two", "../one"},
                                                   {folder / "three", folder / "sub/two"},
                                                   {folder / "far", "sub/inner"}, // whose ".." is sub
                                                   {folder / "sub/inner/four", "../../one"},
                                                   {folder / "dangling", "sub/made"}};
    fs::create_directory(folder / "sub/inner");
    for (const auto& [link, target] : links)
        fs::create_symlink(target, link);
    for (const char* link : {"one", "sub/two", "three", "far/four"}) {
        storage.write(folder / link, link);
        EXPECT_EQ(textOf(file), link);
        EXPECT_EQ(storage.read(folder / link), link);
    }
    storage.write(folder / "dangling", "new");
    EXPECT_EQ(textOf(folder / "sub/made"), "new");
    for (const auto& [link, target] : links) {
        EXPECT_EQ(fs::read_symlink(link), target);
        storage.remove(link);
    }
    EXPECT_THAT(names(), ElementsAre("file", "sub", "sub/inner", "sub/made"));
}

TEST_F(PosixStorageTest, RejectsWhatIsNotARegularFile) {
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0666), 0);
    const std::pair<const char*, const char*> links[] = {{"fifo", "fifolink"},
                                                         {"sub", "sublink"},
                                                         {"none", "dangling"},
                                                         {"self", "self"},
                                                         {"none/file", "lost"}};
    for (const auto& [target, link] : links)
        fs::create_symlink(target, folder / link);
    const std::set<std::string> before = names();
    const std::string notRegular = ", which is not a regular file: Invalid argument";
    const std::string isFolder = ": Is a directory", notFound = ": No such file or directory";
    const std::string noFolder = ": cannot open its folder", longName(300, 'x');
    const struct {
        std::vector<const char*> verbs, paths;
        std::string reason;
    } refused[] = {{{"read", "write", "remove"}, {"sub", "sub/"}, isFolder},
                   {{"read", "write", "remove"}, {"fifo"}, notRegular},
                   {{"read", "write", "remove"}, {longName.c_str()}, ": File name too long"},
                   {{"read", "write"}, {"sublink"}, isFolder},
                   {{"read", "write"}, {"fifolink"}, notRegular},
                   {{"read"}, {"/dev/zero"}, notRegular},
                   {{"read"}, {"none", "none/file"}, notFound},
                   {{"remove"}, {"none"}, notFound},
                   {{"write", "remove", "create"}, {"none/file"}, noFolder + notFound},
                   {{"write"}, {"lost"}, noFolder + notFound},
                   {{"read", "write"}, {"file/file"}, ": Not a directory"},
                   {{"remove"}, {"file/file"}, noFolder + ": Not a directory"},
                   {{"write"}, {"self"}, ": Too many levels of symbolic links"},
                   {{"create"}, {"file", "sub", "sub/", "self", "dangling"}, ": File exists"}};
    for (const auto& [verbs, paths, reason] : refused)
        for (const char* verb : verbs)
            for (const char* path : paths)
                expectFailure(verb, folder / path, reason);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(textOf(file), "old");
}

TEST_F(PosixStorageTest, SaysWhatHoldsWhenTheFolderCannotBeSynced) {
    int error = EIO;
    calls->onCall = [&](std::string_view call, int synced, const std::string&) {
        return call == "fsync" && S_ISDIR(statusOf(synced).st_mode) ? error : 0;
    };
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"write", "the new text is in place, but a crash may bring the old one back", "new"},
        {"remove", "it is gone, but a crash may bring it back", "none"},
        {"create", "it is in place, but a crash may take it away", "new"}};
    for (const auto& [verb, state, text] : cases) {
        expectFailure(verb, file, " for good: " + state + ": Input/output error");
        EXPECT_EQ(textOf(file), text);
    }
    for (const int noSuchSync : {EINVAL, ENOTSUP}) {
        error = noSuchSync;
        storage.write(file, "newer");
        storage.remove(file);
        storage.create(file, "newest");
    }
}

TEST_F(PosixStorageTest, CreatesOnlyWhereNothingIs) {
    EXPECT_THAT([&] { storage.create(folder / "new", "new", folder / "none"); },
                testing::ThrowsMessage<std::system_error>(
                    "cannot create \"" + (folder / "new").string() + "\" with the access of \"" +
                    (folder / "none").string() + "\": No such file or directory"));
    // Somebody creates it at the last moment, also where no rename can be exclusive.
    for (const int noSuchRename : {0, EINVAL}) {
        const fs::path raced = folder / "sub/raced";
        calls->onCall = [&](std::string_view call, int, const std::string&) {
            if (call != "renameatExclusively")
                return 0;
            std::ofstream(raced) << "another's";
            return noSuchRename;
        };
        expectFailure("create", raced, ": File exists");
        EXPECT_EQ(textOf(raced), "another's");
    }
    EXPECT_THAT(names(), ElementsAre("file", "sub", "sub/raced"));
}

TEST_F(PosixStorageTest, RemovesWhatKilledWritersLeftAndNothingElse) {
    const auto makeOld = [](const fs::path& path) {
        const timespec times[] = {{0, UTIME_NOW}, {::time(nullptr) - 3601, 0}};
        EXPECT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    };
    std::string name;
    calls->onCall = [&](std::string_view call, int, const std::string&) {
        if (call == "fsync" && name.empty()) { // a slow writer, and a second one meanwhile
            name = *names().begin();
            makeOld(folder / name);
            DurableTextFileStorage().write(file, "second");
        }
        return 0;
    };
    storage.write(file, "slow");
    EXPECT_EQ(textOf(file), "slow");
    const auto makeLeftover = [&](char digit) {
        name[name.find(".tmp") - 1] = digit;
        std::ofstream(folder / name) << "left";
        return name;
    };
    const std::string abandoned = makeLeftover('1'), young = makeLeftover('2'), fifo = makeLeftover('3'),
                      longer = abandoned + ".tmp";
    fs::remove(folder / fifo);
    ASSERT_EQ(::mkfifo((folder / fifo).c_str(), 0600), 0);
    const int reader = ::open((folder / fifo).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    std::ofstream(folder / longer) << "somebody's";
    for (const std::string& old : {abandoned, fifo, longer})
        makeOld(folder / old);
    storage.write(folder / "other", "new");
    EXPECT_THAT(names(), ElementsAre(abandoned, longer, young, fifo, "file", "other", "sub"));
    storage.write(file, "new");
    EXPECT_THAT(names(), ElementsAre(longer, young, fifo, "file", "other", "sub"));
    ::close(reader);
}

TEST_F(PosixStorageTest, NeverWritesIntoAnothersTemporaryFile) {
    fs::path unrelated;
    calls->onCall = [&](std::string_view call, int, const std::string& name) {
        if (call == "openat" && name.ends_with(".tmp"))
            std::ofstream(unrelated = folder / name) << "another's";
        return 0;
    };
    expectFailure("write", file, ": cannot create a file in its folder: File exists");
    EXPECT_EQ(textOf(unrelated), "another's");
    EXPECT_EQ(textOf(file), "old");
}

} // namespace
} // namespace norel::Desktop::Storage

#include "norel/Desktop/Storage/DurableTextFileStorage.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <iterator>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace {

/// What the two system calls below do beside their work, for all of this program.
struct SystemCalls {
    std::function<void(int file)> onWrite = [](int) {};
    std::function<void(int file)> onSync = [](int) {};
    std::size_t longestWrite = static_cast<std::size_t>(-1);
    int interruptions = 0; // so many of the next calls are interrupted by a signal
    int syncsUntilFailure = -1;

    bool isInterrupted() {
        errno = EINTR;
        return interruptions > 0 && interruptions-- > 0;
    }
};

SystemCalls systemCalls;

} // namespace

// These stand in the way of the system's functions of the same names.
extern "C" {

[[gnu::visibility("default")]] ssize_t write(int file, const void* bytes, std::size_t size) {
    if (systemCalls.isInterrupted())
        return -1;
    systemCalls.onWrite(file);
    return ::syscall(SYS_write, file, bytes, std::min(size, systemCalls.longestWrite));
}

[[gnu::visibility("default")]] int fsync(int file) {
    if (systemCalls.isInterrupted())
        return -1;
    systemCalls.onSync(file);
    if (systemCalls.syncsUntilFailure < 0 || systemCalls.syncsUntilFailure-- > 0)
        return static_cast<int>(::syscall(SYS_fsync, file));
    errno = EIO;
    return -1;
}
}

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

std::string textOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

mode_t modeOf(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 ? status.st_mode : 0;
}

struct DurableTextFileStorageTest : testing::Test {
    DurableTextFileStorageTest() {
        std::string pattern = (fs::temp_directory_path() / "norel-storage-test-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        file = folder / "file";
        std::ofstream(file) << "old";
        fs::create_directory(folder / "sub");
        systemCalls = {};
    }

    ~DurableTextFileStorageTest() override {
        systemCalls = {};
        ::umask(formerMask);
        fs::remove_all(folder);
    }

    std::set<std::string> names() const {
        std::set<std::string> result;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            result.insert(entry.path().lexically_relative(folder).string());
        return result;
    }

    /// Runs the storage's operation `verb`, which must fail on that path with that text.
    void expectFailure(const std::string& verb, const fs::path& path, const std::string& reason) {
        const auto operation = [&] {
            verb == "read"    ? void(storage.read(path))
            : verb == "write" ? storage.write(path, "new")
                              : storage.remove(path);
        };
        EXPECT_THAT(operation, testing::ThrowsMessage<std::system_error>("cannot " + verb + " \"" +
                                                                         path.string() + "\"" + reason));
    }

    const mode_t formerMask = ::umask(022);
    fs::path folder, file; // the file "old", and a folder "sub" beside it
    DurableTextFileStorage storage;
};

TEST_F(DurableTextFileStorageTest, ReadsWhatItWrote) {
    for (const std::string& text :
         {std::string("a\r\n"), std::string(), std::string("\0a\0", 3), std::string(3000001, 'x')}) {
        storage.write(file, text);
        EXPECT_TRUE(textOf(file) == text);
        EXPECT_TRUE(storage.read(file) == text);
    }
    const fs::path former = fs::current_path();
    fs::current_path(folder);
    storage.write("relative", "here");
    fs::current_path(former);
    EXPECT_EQ(storage.read(folder / "relative"), "here");
    EXPECT_THAT(names(), ElementsAre("file", "relative", "sub"));
}

TEST_F(DurableTextFileStorageTest, SyncsTheTextBeforeTheReplacementAndTheFolderAfter) {
    std::vector<std::string> log;
    systemCalls.onSync = [&](int synced) {
        log.push_back((S_ISDIR(modeOf(synced)) ? "folder " : "file ") + textOf(file));
    };
    storage.write(file, "new");
    storage.remove(file);
    EXPECT_THAT(log, ElementsAre("file old", "folder new", "folder "));
}

TEST_F(DurableTextFileStorageTest, GoesOnAfterShortWritesAndSignals) {
    systemCalls.longestWrite = 7;
    systemCalls.onWrite = [](int) { systemCalls.interruptions = 2; };
    systemCalls.interruptions = 2;
    storage.write(file, "some text of more than one piece");
    EXPECT_EQ(textOf(file), "some text of more than one piece");
}

TEST_F(DurableTextFileStorageTest, NoTextIsReadableBeyondItsMode) {
    mode_t whileWriting = 0;
    systemCalls.onWrite = [&](int written) { whileWriting = modeOf(written) & 07777U; };
    const uid_t owner = ::geteuid() == 0 ? 4321 : ::geteuid(); // only root gives files away
    const gid_t group = ::geteuid() == 0 ? 8765 : ::getegid();
    for (const mode_t mask : {0000U, 0022U, 0077U, 0177U}) {
        ::umask(mask);
        fs::remove(file);
        storage.write(file, "new");
        EXPECT_EQ(static_cast<mode_t>(fs::status(file).permissions()), 0666U & ~mask);
        EXPECT_EQ(whileWriting & mask, 0U);
        for (const mode_t mode : {0600U, 0640U, 0666U, 04750U}) {
            ASSERT_EQ(::chown(file.c_str(), owner, group) + ::chmod(file.c_str(), mode), 0);
            storage.write(file, "newer");
            struct stat status {};
            ASSERT_EQ(::stat(file.c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 07777U, mode);
            EXPECT_EQ(whileWriting & ~mode, 0U);
            EXPECT_EQ(status.st_uid, owner);
            EXPECT_EQ(status.st_gid, group);
        }
    }
}

TEST_F(DurableTextFileStorageTest, ReplacesAnothersFileOnlyWhenItMayBeWritten) {
    const uid_t user = ::geteuid();
    ASSERT_EQ(::chmod(folder.c_str(), 0777) + ::chmod(file.c_str(), 0444), 0);
    ASSERT_EQ(user == 0 ? ::seteuid(65534) : 0, 0); // root may do anything
    expectFailure("write", file, ": Permission denied");
    ASSERT_EQ(::seteuid(user), 0);
    EXPECT_EQ(textOf(file), "old");
    ASSERT_EQ(::chmod(file.c_str(), user == 0 ? 04666 : 0666), 0);
    ASSERT_EQ(user == 0 ? ::seteuid(65534) : 0, 0);
    storage.write(file, "new");
    ASSERT_EQ(::seteuid(user), 0);
    EXPECT_EQ(textOf(file), "new");
    EXPECT_EQ(static_cast<mode_t>(fs::status(file).permissions()), 0666U);
    EXPECT_THAT(names(), ElementsAre("file", "sub"));
}

TEST_F(DurableTextFileStorageTest, FollowsLinksAndKeepsThem) {
    const std::pair<fs::path, fs::path> links[] = {{folder / "one", "file"},
                                                   {folder / "sub/two", "../one"},
                                                   {folder / "three", folder / "sub/two"},
                                                   {folder / "dangling", "sub/made"},
                                                   {folder / "self", "self"},
                                                   {folder / "nowhere", "none/file"}};
    for (const auto& [link, target] : links)
        fs::create_symlink(target, link);
    for (const char* link : {"one", "sub/two", "three"}) {
        storage.write(folder / link, link);
        EXPECT_EQ(textOf(file), link);
        EXPECT_EQ(storage.read(folder / link), link);
    }
    storage.write(folder / "dangling", "new");
    EXPECT_EQ(textOf(folder / "sub/made"), "new");
    expectFailure("write", folder / "self", ": Too many levels of symbolic links");
    expectFailure("write", folder / "nowhere", ": No such file or directory");
    for (const auto& [link, target] : links) {
        EXPECT_EQ(fs::read_symlink(link), target);
        storage.remove(link);
    }
    EXPECT_THAT(names(), ElementsAre("file", "sub", "sub/made"));
}

TEST_F(DurableTextFileStorageTest, RefusesWhatIsNoFile) {
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0666), 0);
    fs::create_symlink("fifo", folder / "fifolink");
    fs::create_symlink("sub", folder / "sublink");
    const std::string notRegular = ", which is not a regular file: Invalid argument";
    const std::pair<std::string, std::string> refused[] = {{"sub", ": Is a directory"},
                                                           {"sub/", ": Is a directory"},
                                                           {"fifo", notRegular},
                                                           {"none/file", ": No such file or directory"},
                                                           {"file/file", ": Not a directory"},
                                                           {std::string(300, 'x'), ": File name too long"}};
    for (const auto& [name, reason] : refused)
        for (const char* verb : {"read", "write", "remove"})
            expectFailure(verb, folder / name, reason);
    for (const char* verb : {"read", "write"}) {
        expectFailure(verb, folder / "fifolink", notRegular);
        expectFailure(verb, folder / "sublink", ": Is a directory");
    }
    for (const char* verb : {"read", "remove"})
        expectFailure(verb, folder / "none", ": No such file or directory");
    expectFailure("read", "/dev/zero", notRegular);
    EXPECT_THAT(names(), ElementsAre("fifo", "fifolink", "file", "sub", "sublink"));
    EXPECT_EQ(textOf(file), "old");
}

TEST_F(DurableTextFileStorageTest, FailedWriteLeavesEverythingAsItWas) {
    systemCalls.syncsUntilFailure = 0;
    expectFailure("write", file, ": Input/output error");
    systemCalls = {};

    rlimit former{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &former), 0);
    rlimit limit = former;
    limit.rlim_cur = 2; // the text has three bytes
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    expectFailure("write", file, ": File too large");
    expectFailure("write", folder / "sub/new", ": File too large");
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &former), 0);
    std::signal(SIGXFSZ, formerHandler);
    EXPECT_EQ(textOf(file), "old");
    EXPECT_THAT(names(), ElementsAre("file", "sub"));
}

TEST_F(DurableTextFileStorageTest, SaysWhatHoldsWhenTheFolderCannotBeSynced) {
    systemCalls.syncsUntilFailure = 1;
    expectFailure(
        "write", file,
        " for good: the new text is in place, but a crash may bring the old one back: Input/output error");
    EXPECT_EQ(textOf(file), "new");
    systemCalls.syncsUntilFailure = 0;
    expectFailure("remove", file, " for good: it is gone, but a crash may bring it back: Input/output error");
    EXPECT_THAT(names(), ElementsAre("sub"));
}

TEST_F(DurableTextFileStorageTest, ReadersAlwaysSeeOneWholeText) {
    std::atomic<int> writersAtWork = 2;
    std::atomic<int> mixtures = 0;
    std::vector<std::thread> threads;
    for (const char letter : {'b', 'c'})
        threads.emplace_back([&, letter] {
            for (std::size_t i = 1; i <= 20; ++i)
                storage.write(file, std::string(i * 10000, letter));
            --writersAtWork;
        });
    for (int reader = 0; reader < 2; ++reader)
        threads.emplace_back([&] {
            while (writersAtWork > 0) {
                const std::string text = storage.read(file);
                const std::string whole(text.size(), text.empty() ? ' ' : text.front());
                mixtures += text != "old" && (text != whole || text.empty() || text.size() % 10000 != 0);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(mixtures, 0);
    EXPECT_THAT(names(), ElementsAre("file", "sub"));
}

} // namespace
} // namespace norel::Desktop::Storage

#include "StorageTest.h"
#include "text/Utf8Path.h"
#include "windows/SystemCalls.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <thread>

#include <sddl.h>

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct TestCalls : SystemCalls {
    using SystemCalls::longestWrite;

    /// Called before every system call; returns the error that it is to fail with, or 0.
    std::function<DWORD(std::string_view call)> onCall;

private:
    DWORD before(const char* call) override { return onCall ? onCall(call) : 0; }
};

struct TestStorage : DurableTextFileStorage {
    TestStorage(NoticeHandler handler, std::shared_ptr<TestCalls> calls)
        : DurableTextFileStorage(std::move(handler), std::move(calls)) {}
};

std::string wordsOf(std::errc error) { return ": " + std::make_error_code(error).message(); }

/// The access control list as text.
std::string accessOf(const fs::path& path) {
    SystemCalls calls;
    Handle file;
    Security security;
    EXPECT_TRUE(calls.open(path.native(), READ_CONTROL, file) && calls.getSecurity(file, security));
    LPSTR text = nullptr;
    EXPECT_TRUE(::ConvertSecurityDescriptorToStringSecurityDescriptorA(
        security.descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr));
    const std::string result = text;
    ::LocalFree(text);
    return result;
}

HANDLE openFor(const fs::path& path, DWORD access, DWORD shared, DWORD creation = OPEN_EXISTING) {
    return ::CreateFileW(path.c_str(), access, shared, nullptr, creation, 0, nullptr);
}

struct WindowsStorageTest : StorageTest {
    void expectFailure(const std::string& verb, const fs::path& path, const std::string& reason) {
        StorageTest::expectFailure(storage, verb, path, reason);
    }

    const std::shared_ptr<TestCalls> calls = std::make_shared<TestCalls>();
    TestStorage storage{keepNotice, calls};
};

TEST_F(WindowsStorageTest, EveryFailureOfASystemCallLeavesTheOldTextOrTheNewOne) {
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
    const std::pair<DWORD, std::errc> errors[] = {{ERROR_IO_DEVICE, std::errc::io_error},
                                                  {ERROR_DISK_FULL, std::errc::no_space_on_device},
                                                  {ERROR_ACCESS_DENIED, std::errc::permission_denied}};
    for (const auto& [code, error] : errors)
        for (const auto& [verb, path, before, after, run] : operations)
            for (int failing = 0, count = 0; count >= failing; ++failing) {
                fs::remove(made);
                fs::remove(file);
                std::ofstream(file) << "old";
                std::string failed, message;
                count = 0;
                calls->onCall = [&, code = code](std::string_view call) {
                    failed = count == failing ? call : failed;
                    return count++ == failing ? code : 0;
                };
                try {
                    run();
                } catch (const std::system_error& failure) {
                    message = failure.what();
                }
                SCOPED_TRACE(verb + wordsOf(error) + " from " + failed);
                if (!message.empty()) {
                    EXPECT_TRUE(message.starts_with("cannot " + verb + " \"" + path.string() + '"'))
                        << message;
                    EXPECT_TRUE(message.ends_with(wordsOf(error))) << message;
                }
                const bool isDone = message.empty() || message.find(" for good: ") != std::string::npos;
                EXPECT_EQ(textOf(path), isDone ? after : before);
                EXPECT_THAT(names(), testing::Each(testing::Not(testing::StartsWith(".norel-"))));
            }
}

TEST_F(WindowsStorageTest, RejectsWhatIsNotARegularFile) {
    fs::create_directory(folder / "sub/inner");
    const std::set<std::string> before = names();
    const std::string notRegular = ", which is not a regular file" + wordsOf(std::errc::invalid_argument);
    const std::string isFolder = wordsOf(std::errc::is_a_directory);
    const std::string notFound = wordsOf(std::errc::no_such_file_or_directory);
    const struct {
        std::vector<const char*> verbs, paths;
        std::string reason;
    } refused[] = {
        {{"read", "write", "remove"}, {"sub", "sub/"}, isFolder},
        {{"write", "create"}, {"new/"}, isFolder},
        {{"write", "create"}, {"nul", "Com1.json", "lpt9 .a.b", "CONOUT$", "name:stream"}, notRegular},
        {{"write"}, {"file:stream"}, notRegular},
        {{"write", "create"}, {"a?b", "a*"}, wordsOf(std::errc::invalid_argument)},
        {{"read"}, {"none", "none/file"}, notFound},
        {{"remove"}, {"none"}, notFound},
        {{"write", "remove", "create"}, {"none/file"}, ": cannot open its folder" + notFound},
        {{"create"}, {"file", "sub"}, wordsOf(std::errc::file_exists)}};
    for (const auto& [verbs, paths, reason] : refused)
        for (const char* verb : verbs)
            for (const char* path : paths)
                expectFailure(verb, folder / path, reason);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(textOf(file), "old");
}

TEST_F(WindowsStorageTest, RefusesToReplaceOrRemoveAReadOnlyFile) {
    ASSERT_TRUE(::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    for (const char* verb : {"write", "remove"})
        expectFailure(verb, file, wordsOf(std::errc::permission_denied));
    EXPECT_EQ(storage.read(file), "old");
    ASSERT_TRUE(::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_THAT(names(), ElementsAre("file", "sub"));
}

TEST_F(WindowsStorageTest, KeepsAttributesAndAccess) {
    ASSERT_TRUE(::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN));
    const DWORD attributes = ::GetFileAttributesW(file.c_str());
    PSECURITY_DESCRIPTOR descriptor = nullptr; // only the owner may write, only users may read
    ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorA(
        "D:P(A;;FA;;;OW)(A;;FA;;;BA)(A;;FR;;;BU)", SDDL_REVISION_1, &descriptor, nullptr));
    EXPECT_TRUE(::SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, descriptor));
    ::LocalFree(descriptor);
    const std::string access = accessOf(file);
    storage.write(file, "new");
    storage.create(folder / "backup", "old", file);
    for (const fs::path& path : {file, folder / "backup"}) {
        EXPECT_EQ(accessOf(path), access);
        EXPECT_EQ(::GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN,
                  attributes & FILE_ATTRIBUTE_HIDDEN);
    }
    EXPECT_THAT(notices, ElementsAre());
}

TEST_F(WindowsStorageTest, ReplacesAFileThatOthersHaveOpen) {
    Handle reader;
    reader.reset(openFor(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE));
    storage.write(file, "new");
    char text[3];
    DWORD count = 0;
    EXPECT_TRUE(::ReadFile(reader, text, sizeof text, &count, nullptr));
    EXPECT_EQ(std::string_view(text, count), "old");
    EXPECT_EQ(textOf(file), "new");
}

TEST_F(WindowsStorageTest, RemovesAFileThatOthersHaveOpen) {
    Handle reader;
    reader.reset(openFor(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE));
    storage.remove(file);
    reader.reset(INVALID_HANDLE_VALUE);
    EXPECT_THAT(names(), ElementsAre("sub"));
}

TEST_F(WindowsStorageTest, WaitsASecondForAFileThatAnotherHoldsOpenForItselfAlone) {
    for (const char* verb : {"read", "write", "remove"}) {
        Handle scanner;
        scanner.reset(openFor(file, GENERIC_READ, 0));
        ASSERT_NE(scanner, INVALID_HANDLE_VALUE);
        std::thread end([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(300));
            scanner.reset(INVALID_HANDLE_VALUE);
        });
        verb == std::string("read")    ? void(storage.read(file))
        : verb == std::string("write") ? storage.write(file, "new")
                                       : storage.remove(file);
        end.join();
    }
    EXPECT_THAT(names(), ElementsAre("sub"));
    Handle holder;
    holder.reset(openFor(file, GENERIC_WRITE, 0, CREATE_ALWAYS));
    const auto reason = std::error_code(ERROR_SHARING_VIOLATION, std::system_category()).message();
    for (const char* verb : {"read", "write", "remove"})
        expectFailure(verb, file, ": " + reason);
}

TEST_F(WindowsStorageTest, TakesNamesInAnyScriptAndPathsOfAnyLength) {
    const fs::path name = Text::makePath("\u00c4-\u6d4b\u91cf-\U0001F6F0.json");
    storage.create(folder / name, "created");
    storage.write(folder / name, "new");
    EXPECT_EQ(storage.read(folder / name), "new");
    EXPECT_TRUE(fs::exists(folder / name));
    storage.remove(folder / name);
    try {
        storage.read(name);
        ADD_FAILURE();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.what(), "cannot read \"" + Text::toUtf8(name) + '"' +
                                    wordsOf(std::errc::no_such_file_or_directory));
    }
    fs::path deep = folder;
    for (int i = 0; i < 6; ++i) {
        deep /= std::string(60, static_cast<char>('a' + i));
        ASSERT_TRUE(
            ::CreateDirectoryW((L"\\\\?\\" + fs::path(deep).make_preferred().native()).c_str(), nullptr));
    }
    storage.create(deep / "file", "created");
    storage.write(deep / "file", "new");
    EXPECT_EQ(storage.read(deep / "file"), "new");
    storage.remove(deep / "file");
    for (int i = 0; i < 6; ++i, deep = deep.parent_path())
        EXPECT_TRUE(::RemoveDirectoryW((L"\\\\?\\" + fs::path(deep).make_preferred().native()).c_str()));
    EXPECT_THAT(names(), ElementsAre("file", "sub"));
}

TEST_F(WindowsStorageTest, FollowsLinksAndKeepsThem) {
    ::CreateSymbolicLinkW((folder / "link").c_str(), L"file", SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE);
    const DWORD attributes = ::GetFileAttributesW((folder / "link").c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        GTEST_SKIP() << "symbolic links cannot be created";
    storage.write(folder / "link", "new");
    EXPECT_EQ(textOf(file), "new");
    EXPECT_EQ(storage.read(folder / "link"), "new");
    storage.remove(file);
    expectFailure("write", folder / "link", wordsOf(std::errc::no_such_file_or_directory));
    expectFailure("create", folder / "link", wordsOf(std::errc::file_exists));
    storage.remove(folder / "link");
    EXPECT_THAT(names(), ElementsAre("sub"));
}

TEST_F(WindowsStorageTest, RemovesWhatKilledWritersLeftAndNothingElse) {
    const auto makeOld = [](const fs::path& path) {
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::seconds(3605));
    };
    std::string name;
    calls->onCall = [&](std::string_view call) {
        if (call == "flush" && name.empty()) { // a slow writer, and a second one meanwhile
            name = *names().begin();
            DurableTextFileStorage().write(file, "second");
        }
        return DWORD{0};
    };
    storage.write(file, "slow");
    EXPECT_EQ(textOf(file), "slow");
    const auto makeLeftover = [&](char digit) {
        name[name.find(".tmp") - 1] = digit;
        std::ofstream(folder / name) << "left";
        return name;
    };
    const std::string abandoned = makeLeftover('1'), young = makeLeftover('2'), used = makeLeftover('3');
    for (const std::string& old : {abandoned, used})
        makeOld(folder / old);
    Handle writer;
    writer.reset(openFor(folder / used, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE));
    storage.write(folder / "other", "new");
    EXPECT_THAT(names(), ElementsAre(abandoned, young, used, "file", "other", "sub"));
    storage.write(file, "new");
    EXPECT_THAT(names(), ElementsAre(young, used, "file", "other", "sub"));
}

TEST_F(WindowsStorageTest, NeverReplacesWhatIsCreatedMeanwhile) {
    const fs::path raced = folder / "raced";
    calls->onCall = [&](std::string_view call) {
        if (call == "rename")
            std::ofstream(raced) << "another's";
        return DWORD{0};
    };
    expectFailure("create", raced, wordsOf(std::errc::file_exists));
    EXPECT_EQ(textOf(raced), "another's");
    EXPECT_THAT(names(), ElementsAre("file", "raced", "sub"));
}

} // namespace
} // namespace norel::Desktop::Storage

#include "CountNames.h"
#include "RunApplication.h"
#include "documents/FileLock.h"

#include <chrono>
#include <map>
#include <optional>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

/// The application under the control of other programs: one that is killed, another user's.
class PosixLockTest : public ApplicationTest {};

TEST_F(PosixLockTest, WaitsForTheLockOfTheFileThatLinksLeadTo) {
    write("profile.json", makeDocument(5));
    std::filesystem::create_directory(folder / "real");
    std::filesystem::create_directory_symlink("real", folder / "linked");
    std::filesystem::create_symlink("linked/p.json", folder / "link.json");
    const std::string held = "still locked by process " + std::to_string(::getpid()) +
                             " after 0 seconds; --wait "
                             "SECONDS waits longer";
    {
        const FileLock lock(folder / "link.json", std::chrono::seconds(0));
        for (const std::string file : {"link.json", "real/p.json", "linked/p.json"})
            for (const std::string& command : {"add " + file + " profile.json", "merge profile.json " + file})
                expect(command + " --wait 0", 2, "", failure(file, held));
        EXPECT_FALSE(std::filesystem::exists(folder / "real/p.json"));
    }
    expect("add link.json profile.json", 0, "added 5 \"Tessaly Alpha\"\n");
    const FileLock lock(folder / "real/p.json", std::chrono::seconds(0));
    for (const char* command : {"delete link.json 5", "upgrade link.json"})
        expect(std::string(command) + " --wait 0", 2, "", failure("link.json", held));
    runWell("merge profile.json link.json --dry-run; } && { '" PAYLOAD_PROFILES
            "' upgrade --dry-run link.json; }",
            "{");
}

TEST_F(PosixLockTest, IsNotTakenOnALockFileThatAHolderHasRemoved) {
    if (*SANITIZERS != '\0' || std::system("strace -o /dev/null true 2>/dev/null") != 0)
        GTEST_SKIP() << "the application cannot be traced";
    write("profile.json", makeDocument(5));
    std::optional<FileLock> lock(std::in_place, folder / "p.json", std::chrono::seconds(0));
    // The application opens the lock file and locks it, by its fourth call of fcntl, a second later.
    std::thread other([this] {
        expect("add p.json profile.json --wait 0", 2, "",
               failure("p.json", "still locked by process " + std::to_string(::getpid()) +
                                     " after 0 seconds; --wait SECONDS waits longer"),
               "strace -o trace -e trace=fcntl -e inject=fcntl:delay_enter=1000000:when=4");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    lock.reset();
    lock.emplace(folder / "p.json", std::chrono::seconds(0));
    other.join();
    EXPECT_NE(read("trace").find("F_SETLK"), std::string::npos);
}

TEST_F(PosixLockTest, DoesNotWaitWhereTheFolderCannotBeUsed) {
    const std::string asNobody = "setpriv --reuid 65534 --regid 65534 --clear-groups ";
    if (std::system((asNobody + "test -x '" PAYLOAD_PROFILES "' 2>/dev/null").c_str()) != 0)
        GTEST_SKIP() << "the application cannot be run as another user";
    write("profile.json", makeDocument(5));
    const std::pair<std::filesystem::perms, std::string> cases[] = {
        {std::filesystem::perms(0555), "cannot create \"f/p.json\": cannot create a file in its folder"},
        {std::filesystem::perms(0444), "cannot use its lock file \"f/.p.json.norel-lock\""}};
    for (const auto& [mode, message] : cases) {
        std::filesystem::create_directory(folder / "f");
        std::filesystem::permissions(folder / "f", mode);
        expect("add f/p.json profile.json --wait 60", 2, "",
               failure("f/p.json", message + ": Permission denied"), asNobody + "timeout 5");
    }
}

/// The system calls of a run from the first one that names the file on: (name, how many of that name so far).
std::vector<std::pair<std::string, int>> listCalls(const std::string& trace, const std::string& file) {
    std::vector<std::pair<std::string, int>> calls;
    std::map<std::string, int> counts;
    std::istringstream lines(trace);
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(0, line.find('('));
        const int number = ++counts[name];
        if (!calls.empty() || line.find(file) != std::string::npos)
            calls.emplace_back(name, number);
    }
    return calls;
}

TEST_F(PosixLockTest, KeepsTheFileWholeWhenKilledAtAnySystemCall) {
    if (*SANITIZERS != '\0')
        GTEST_SKIP() << "a process with sanitizers cannot be traced";
    if (std::system("strace -o /dev/null true 2>/dev/null") != 0)
        GTEST_SKIP() << "there is no strace that works";
    write("a.json", makeDocument(5));
    write("b.json", makeDocument(7));
    const Names both{{"Tessaly Alpha", 1}, {"Tessaly Gamma", 1}};
    for (const std::string& old : {std::string(), makeDocument(5)}) {
        const Names added = old.empty() ? Names{{"Tessaly Gamma", 1}} : both;
        const auto reset = [&] {
            std::filesystem::remove(folder / "p.json");
            if (!old.empty())
                write("p.json", old);
        };
        reset();
        const std::string calls =
            "openat,newfstatat,faccessat2,read,write,fchown,fchmod,fsync,renameat,renameat2,unlink,"
            "unlinkat,close,fcntl,readlink";
        runWell("add p.json b.json", "strace -qq -o trace -e trace=" + calls);
        const auto kills = listCalls(read("trace"), "p.json");
        EXPECT_GT(kills.size(), 20U);
        for (const auto& [call, number] : kills) {
            SCOPED_TRACE(call + ' ' + std::to_string(number) + (old.empty() ? " of a new file" : ""));
            reset();
            runWell("add p.json b.json; exit $?; ) >/dev/null 2>&1; [ $? = 137 ]",
                    "( strace -o /dev/null -e trace=" + call + " -e inject=" + call +
                        ":signal=KILL:when=" + std::to_string(number));
            const bool isUnchanged =
                old.empty() ? !std::filesystem::exists(folder / "p.json") : read("p.json") == old;
            EXPECT_TRUE(isUnchanged || countNames(read("p.json")) == added);
            runWell("add p.json a.json");
            runWell("add p.json b.json");
            EXPECT_EQ(countNames(read("p.json")), both);
            EXPECT_FALSE(std::filesystem::exists(folder / ".p.json.norel-lock"));
        }
    }
}

} // namespace
} // namespace norel::Desktop::PayloadProfiles::Test

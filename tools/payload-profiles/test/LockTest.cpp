#include "CountNames.h"
#include "RunApplication.h"
#include "documents/FileLock.h"

#include <chrono>
#include <regex>
#include <thread>
#include <vector>

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

/// The application started several times at once.
class LockTest : public ApplicationTest {
protected:
    /// Runs the commands of each list one after another, all lists at once. All must succeed.
    void runAtOnce(const std::vector<std::vector<std::string>>& lists) const {
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < lists.size(); ++i)
            threads.emplace_back([this, i, &list = lists[i]] {
                const std::string name = "captured/" + std::to_string(i);
                for (const std::string& command : list)
                    EXPECT_EQ(runCommand(folder, command, "", name + ".output", name + ".messages"), 0)
                        << read(name + ".messages");
            });
        for (std::thread& thread : threads)
            thread.join();
    }
};

TEST_F(LockTest, LosesNoChangeOfSeveralProcesses) {
    write("a.json", replaced(makeDocument(5), "\"id\": 5", "\"id\": -1"));
    write("b.json", makeDocument(7));
    runAtOnce(std::vector(8, std::vector<std::string>(10, "add all.json a.json --wait 60")));
    EXPECT_EQ(countNames(read("all.json")), (Names{{"Tessaly Alpha", 80}}));
    for (int i = 1; i <= 20; ++i) {
        const std::string file = std::to_string(i) + ".json";
        runAtOnce({{"merge a.json " + file + " --wait 60"}, {"merge b.json " + file + " --wait 60"}});
        EXPECT_EQ(countNames(read(file)), (Names{{"Tessaly Alpha", 1}, {"Tessaly Gamma", 1}}));
    }
    EXPECT_EQ(listFiles().find("lock"), std::string::npos);
}

TEST_F(LockTest, NamesTheProcessThatItWaitsFor) {
    write("profile.json", makeDocument(5));
    const auto add = [this] { return run("add p.json profile.json --wait 0"); };
    {
        const FileLock lock(folder / "p.json", std::chrono::seconds(0));
        EXPECT_EQ(add(), 2);
        EXPECT_EQ(
            std::regex_replace(read("captured/messages"), std::regex("process [0-9]+"), "process N"),
            failure("p.json", "still locked by process N after 0 seconds; --wait SECONDS waits longer"));
        EXPECT_EQ(listFiles(), ".p.json.norel-lock profile.json ");
    }
    EXPECT_EQ(add(), 0);
    EXPECT_EQ(listFiles(), "p.json profile.json ");
}

} // namespace
} // namespace norel::Desktop::PayloadProfiles::Test

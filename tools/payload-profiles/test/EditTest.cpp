#include "RunApplication.h"
#include "terminal/Nearest.h"

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

TEST(Nearest, IsTheCandidateWithTheFewestTypingErrors) {
    const std::vector<std::string> commands{"list", "set", "reset", "show", "lidar.imu_latency"};
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {"lst", "list"},
        {"lits", "list"},
        {"listt", "list"},
        {"lisd", "list"},
        {"sets", "set"},
        {"resets", "reset"},
        {"lidar.imu_latncy", "lidar.imu_latency"},
        {"", std::nullopt},
        {"lt", std::nullopt},
        {"frobnicate", std::nullopt}};
    for (const auto& [word, nearest] : cases)
        EXPECT_EQ(findNearest(word, commands), nearest) << word;
    EXPECT_EQ(findNearest(std::string(100000, 'a'), commands), std::nullopt);
}

} // namespace
} // namespace norel::Desktop::PayloadProfiles::Test

#include "StorageTest.h"

#include <atomic>
#include <thread>

namespace norel::Desktop::Storage {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct DurableTextFileStorageTest : StorageTest {
    DurableTextFileStorage storage{keepNotice};
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

TEST_F(DurableTextFileStorageTest, ReportsHardLinksToTheHandlerWhichMayCancelTheWrite) {
    fs::create_hard_link(file, folder / "other");
    const std::string notice = "the other hard links of \"" + file.string() + "\" keep the old text";
    DurableTextFileStorage stopped([](const std::string& text) { throw std::runtime_error(text); });
    EXPECT_THAT([&] { stopped.write(file, "new"); }, testing::ThrowsMessage<std::runtime_error>(notice));
    EXPECT_EQ(textOf(file), "old");
    storage.write(file, "new");
    EXPECT_THAT(notices, ElementsAre(notice));
    EXPECT_EQ(textOf(folder / "other"), "old");
    EXPECT_THAT(names(), ElementsAre("file", "other", "sub"));
}

TEST_F(DurableTextFileStorageTest, ReadersAlwaysSeeOneWholeText) {
    std::atomic<int> writersAtWork = 2;
    const auto write = [&](char letter) {
        for (std::size_t i = 1; i <= 20; ++i)
            storage.write(file, std::string(i * 10000, letter));
        --writersAtWork;
    };
    const auto read = [&] {
        while (writersAtWork > 0) {
            const std::string text = storage.read(file);
            EXPECT_TRUE(text == "old" || (!text.empty() && text.size() % 10000 == 0 &&
                                          text == std::string(text.size(), text.front())));
        }
    };
    std::thread threads[] = {std::thread(write, 'b'), std::thread(write, 'c'), std::thread(read),
                             std::thread(read)};
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(names(), ElementsAre("file", "sub"));
}

} // namespace
} // namespace norel::Desktop::Storage

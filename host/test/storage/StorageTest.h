#pragma once

#include "norel/Desktop/Storage/DurableTextFileStorage.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <system_error>
#include <vector>

namespace norel::Desktop::Storage {

inline std::string textOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return stream ? std::string(std::istreambuf_iterator<char>(stream), {}) : "none";
}

/// A folder with the file "old" and a folder "sub".
struct StorageTest : testing::Test {
    StorageTest() {
        std::filesystem::create_directories(folder / "sub");
        std::ofstream(file) << "old";
    }

    ~StorageTest() override { std::filesystem::remove_all(folder); }

    std::set<std::string> names() const {
        std::set<std::string> result;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            result.insert(entry.path().lexically_relative(folder).generic_string());
        return result;
    }

    /// Runs the operation `verb` of the store, which must fail on that path with that text.
    static void expectFailure(DurableTextFileStorage& store, const std::string& verb,
                              const std::filesystem::path& path, const std::string& reason) {
        const auto operation = [&] {
            verb == "read"     ? void(store.read(path))
            : verb == "write"  ? store.write(path, "new")
            : verb == "create" ? store.create(path, "new")
                               : store.remove(path);
        };
        EXPECT_THAT(operation, testing::ThrowsMessage<std::system_error>("cannot " + verb + " \"" +
                                                                         path.string() + "\"" + reason));
    }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                         ("norel-storage-test-" + std::to_string(std::random_device()()));
    const std::filesystem::path file = folder / "file";
    std::vector<std::string> notices;
    const DurableTextFileStorage::NoticeHandler keepNotice = [this](const std::string& notice) {
        notices.push_back(notice);
    };
};

} // namespace norel::Desktop::Storage

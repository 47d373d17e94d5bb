#pragma once

#include <chrono>
#include <string>

namespace norel::Desktop::PayloadProfiles {

/// Shows on a terminal how far long work has come, once it takes longer than a second, and erases that at
/// the end.
class Progress {
public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// `line` must be printable.
    void show(const std::string& line);

private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    bool isShown = false;
};

} // namespace norel::Desktop::PayloadProfiles

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

    /// `line` must be printable. `isUrgent`: even within the first second, before work that will not return
    /// here for long.
    void show(const std::string& line, bool isUrgent = false);

private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
    bool isShown = false;
};

} // namespace norel::Desktop::PayloadProfiles

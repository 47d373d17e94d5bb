#pragma once

#include <chrono>
#include <string>

namespace norel::Desktop::Storage {

/// The name of a file that is to take another name in its folder: ".norel-<hash of that name>-<random
/// number>.tmp".
class TemporaryName {
public:
    /// A killed writer has left a file that is as old; a text is written in far less.
    static constexpr std::chrono::seconds ABANDONED_AFTER = std::chrono::hours(1);

    /// `target` is in UTF-8.
    explicit TemporaryName(const std::string& target);

    const std::string& get() const { return name; }

    /// Whether `other` is a temporary name for the same target, but not this one.
    bool isSibling(const std::string& other) const;

private:
    std::string prefix, name;
};

} // namespace norel::Desktop::Storage

#pragma once

#include "text/Utf8Path.h"

#include <filesystem>
#include <string>

/// The texts of notices and errors, which are the same on all systems.
namespace norel::Desktop::Storage::Wording {

/// 'cannot VERB "PATH"', which a detail and the system's reason follow.
inline std::string describeOperation(const std::string& verb, const std::filesystem::path& path) {
    return "cannot " + verb + " \"" + Text::toUtf8(path) + '"';
}

/// The verb of creating `path` like `original`, whose path follows.
inline std::string describeCreationLike(const std::filesystem::path& path) {
    return "create \"" + Text::toUtf8(path) + "\" with the access of";
}

inline constexpr char NOT_REGULAR[] = ", which is not a regular file";
inline constexpr char NO_FOLDER[] = ": cannot open its folder";
inline constexpr char NO_FILE_IN_FOLDER[] = ": cannot create a file in its folder";
inline constexpr char WRITTEN[] =
    " for good: the new text is in place, but a crash may bring the old one back";
inline constexpr char REMOVED[] = " for good: it is gone, but a crash may bring it back";
inline constexpr char CREATED[] = " for good: it is in place, but a crash may take it away";

inline std::string describeOtherLinks(const std::filesystem::path& path) {
    return "the other hard links of \"" + Text::toUtf8(path) + "\" keep the old text";
}

/// ' of "PATH"', which follows the name of a property.
inline std::string ofFile(const std::filesystem::path& path) { return " of \"" + Text::toUtf8(path) + '"'; }

/// `property` and ofFile(), then this, then the system's reason.
inline constexpr char NOT_CARRIED_OVER[] = " is not carried over: ";

} // namespace norel::Desktop::Storage::Wording

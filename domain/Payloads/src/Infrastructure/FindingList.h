#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileListValidator.h"

#include <string_view>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// Collects findings in any order, and gives them their line and column.
class FindingList {
public:
    using Finding = ProfileListValidator::Finding;
    using Severity = ProfileListValidator::Severity;

    /// The text must outlive the list.
    explicit FindingList(std::string_view documentText) : text(documentText) {}

    /// `place` is the part of the text that the finding is about.
    void add(std::string_view place, Finding&& finding);

    /// Whether further findings need not be searched for.
    bool isFull() const { return errors > ProfileListValidator::MAXIMUM_FINDINGS; }

    std::size_t size() const { return located.size(); }

    /// Gives the constraints to the findings that were added after the first `count`.
    void constrainFrom(std::size_t count, const ProfileListValidator::Constraints& constraints);

    /// In the order of the text. The list must not be used afterwards.
    ProfileListValidator::Result takeResult();

private:
    struct Located {
        std::size_t offset;
        Finding finding;
    };

    void removeLastWarnings(); // as many as there are too many findings

    std::string_view text;
    std::vector<Located> located;
    std::size_t errors = 0;
    std::size_t warnings = 0;
    bool isCut = false;
};

} // namespace norel::Desktop::Domain::Payloads

#include "FindingList.h"

#include "JsonItems.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace norel::Desktop::Domain::Payloads {
namespace {

/// Counts lines and columns from the beginning of a text, of which an initial byte order mark is no part.
class PlaceCounter {
public:
    explicit PlaceCounter(std::string_view countedText)
        : text(countedText), position(JsonItems::lengthOfByteOrderMark(countedText)) {}

    /// Not before the previous offset.
    void moveTo(std::size_t offset) {
        for (; position < offset; ++position) {
            const bool continuesCharacter = (static_cast<unsigned char>(text[position]) & 0xC0U) == 0x80U;
            if (text[position] == '\n') {
                ++line;
                column = 1;
            } else if (!continuesCharacter) {
                ++column;
            }
        }
    }

    std::size_t line = 1;
    std::size_t column = 1;

private:
    std::string_view text;
    std::size_t position;
};

} // namespace

void FindingList::add(std::string_view place, Finding&& finding) {
    const bool isError = finding.severity == Severity::Error;
    if (++(isError ? errors : warnings) > ProfileListValidator::MAXIMUM_FINDINGS) {
        isCut = true;
        return;
    }
    located.push_back({static_cast<std::size_t>(place.data() - text.data()), std::move(finding)});
}

void FindingList::constrainFrom(std::size_t count, const ProfileListValidator::Constraints& constraints) {
    for (std::size_t i = count; i < located.size(); ++i) {
        ProfileListValidator::Constraints& target = located[i].finding.constraints;
        target.range = constraints.range;
        target.unit = constraints.unit;
    }
}

void FindingList::removeLastWarnings() {
    const std::size_t maximum = ProfileListValidator::MAXIMUM_FINDINGS;
    std::size_t excess = located.size() - std::min(located.size(), maximum);
    isCut = isCut || excess > 0;
    for (auto last = located.end(); excess > 0;)
        if ((--last)->finding.severity == Severity::Warning) {
            last = located.erase(last);
            --excess;
        }
}

ProfileListValidator::Result FindingList::takeResult() {
    std::ranges::stable_sort(
        located, {}, [](const Located& entry) { return std::tuple(entry.offset, entry.finding.severity); });
    removeLastWarnings();
    ProfileListValidator::Result result{{}, isCut};
    PlaceCounter counter(text);
    for (auto& [offset, finding] : located) {
        counter.moveTo(offset);
        finding.line = counter.line;
        finding.column = counter.column;
        result.findings.push_back(std::move(finding));
    }
    return result;
}

} // namespace norel::Desktop::Domain::Payloads

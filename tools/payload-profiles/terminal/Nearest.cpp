#include "terminal/Nearest.h"

#include <algorithm>
#include <numeric>

namespace norel::Desktop::PayloadProfiles {
namespace {

/// The number of typing errors between two texts.
std::size_t distanceBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> beforeLast; // the rows of the table of distances between the beginnings of both
    std::vector<std::size_t> last;
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        beforeLast = std::move(last);
        last = std::move(row);
        row.assign(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
    }
    return row.back();
}

} // namespace

std::optional<std::string> findNearest(std::string_view word, const std::vector<std::string>& candidates) {
    constexpr std::size_t maximumLength = 500; // longer words are not misspelt names
    if (word.size() > maximumLength)
        return std::nullopt;
    std::optional<std::string> nearest;
    std::size_t limit = std::max<std::size_t>(word.size() / 3, 1) + 1; // exclusive
    for (const std::string& candidate : candidates) {
        const std::size_t distance = distanceBetween(word, candidate);
        if (distance >= limit)
            continue;
        limit = distance;
        nearest = candidate;
    }
    return nearest;
}

} // namespace norel::Desktop::PayloadProfiles

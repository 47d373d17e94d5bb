#include "terminal/Table.h"

#include "terminal/Terminal.h"
#include "terminal/Text.h"

#include <algorithm>
#include <numeric>

namespace norel::Desktop::PayloadProfiles {
namespace {

constexpr const char* NO_VALUE = "-";
constexpr std::size_t GAP = 2;       // spaces between columns
constexpr std::size_t NARROWEST = 8; // columns are not made narrower

std::size_t sumOf(const std::vector<std::size_t>& widths) {
    return std::accumulate(widths.begin(), widths.end(), GAP * (widths.size() - 1));
}

std::string coloured(const char* code, const std::string& text) {
    return Terminal::takesColour() ? code + text + "\x1b[0m" : text;
}

} // namespace

Table::Table(const std::vector<std::string>& headings) : widths(headings.size(), 0) { add(headings); }

void Table::add(const std::vector<std::string>& row) {
    for (std::size_t column = 0; column < widths.size(); ++column)
        widths[column] = std::max(widths[column], getDisplayWidth(row[column]));
    rows.push_back(row);
}

void Table::removeEmptyColumns() {
    for (std::size_t column = widths.size(); column-- > 0;) {
        const auto isEmpty = [&](const std::vector<std::string>& row) { return row[column] == NO_VALUE; };
        if (rows.size() < 2 || !std::all_of(rows.begin() + 1, rows.end(), isEmpty))
            continue;
        const auto offset = static_cast<std::ptrdiff_t>(column);
        widths.erase(widths.begin() + offset);
        for (std::vector<std::string>& row : rows)
            row.erase(row.begin() + offset);
    }
}

std::size_t Table::getWidth() const { return sumOf(widths); }

std::vector<std::string> Table::makeLines(std::optional<std::size_t> width) const {
    std::vector<std::size_t> fitting = widths;
    while (width && sumOf(fitting) > *width) {
        const auto widest = std::max_element(fitting.begin(), fitting.end());
        if (*widest <= NARROWEST)
            break;
        --*widest;
    }
    std::vector<std::string> lines;
    for (const std::vector<std::string>& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::string cell = shortened(row[column], fitting[column]);
            line += cell;
            if (column + 1 < row.size())
                line.append(fitting[column] + GAP - getDisplayWidth(cell), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(line);
    }
    return lines;
}

std::string orDash(const std::string& text) { return text.empty() ? NO_VALUE : text; }

std::string orQuotes(const std::string& text) { return text.empty() ? "\"\"" : text; }

std::string bold(const std::string& text) { return coloured("\x1b[1m", text); }

std::string highlighted(const std::string& text) { return coloured("\x1b[33m", text); }

} // namespace norel::Desktop::PayloadProfiles

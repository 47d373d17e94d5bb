#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// Text in columns, with a heading row. All texts must be printable.
class Table {
public:
    explicit Table(const std::vector<std::string>& headings);

    void add(const std::vector<std::string>& row);

    /// Removes the columns without a value, where all cells below the heading are "-".
    void removeEmptyColumns();

    /// The width in terminal columns of the longest line.
    std::size_t getWidth() const;

    /// The lines of the table, the heading first. Where a line would be longer than `width`, cells are
    /// shortened, the widest columns first.
    std::vector<std::string> makeLines(std::optional<std::size_t> width) const;

private:
    std::vector<std::vector<std::string>> rows; ///< the headings first
    std::vector<std::size_t> widths;            ///< of the columns
};

/// The text, or where it is empty "-" (there is no value) or a pair of quotation marks (the value is empty).
std::string orDash(const std::string& text);
std::string orQuotes(const std::string& text);

/// The text in bold, or in the colour that draws attention, where the output is a terminal with colour.
std::string bold(const std::string& text);
std::string highlighted(const std::string& text);

} // namespace norel::Desktop::PayloadProfiles

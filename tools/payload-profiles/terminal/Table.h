#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace norel::Desktop::PayloadProfiles {

/// Texts in columns, with a heading. All texts are printable already.
class Table {
public:
    explicit Table(const std::vector<std::string>& headings);

    void add(const std::vector<std::string>& row);

    /// The columns of a terminal that the table takes.
    std::size_t getWidth() const;

    /// The lines of the table, the heading first. Cells are shortened so far as it takes to keep within
    /// `width`, the widest columns first.
    std::vector<std::string> makeLines(std::optional<std::size_t> width) const;

private:
    std::vector<std::vector<std::string>> rows; // the headings first
    std::vector<std::size_t> widths;            // of the columns
};

/// What stands for an empty text: "-" where there is nothing, a pair of quotation marks where something is
/// empty.
std::string orDash(const std::string& text);
std::string orQuotes(const std::string& text);

/// The text in bold, or in the colour of what deserves attention, on a terminal that takes colour.
std::string bold(const std::string& text);
std::string highlighted(const std::string& text);

} // namespace norel::Desktop::PayloadProfiles

#include "cli/table.h"

#include "cli/char_width.h"
#include "cli/output.h"
#include "cli/terminal.h"

#include <algorithm>

namespace {

constexpr std::size_t longestCell = 48; // columns, on a terminal

std::string cellText(const std::string& cell, bool cut) {
    return cut ? shortened(cell, longestCell) : cell;
}

} // namespace

table::table(std::vector<column> columns) : m_columns(std::move(columns)) {}

void table::add(std::vector<std::string> cells) {
    cells.resize(m_columns.size());
    m_rows.push_back(std::move(cells));
}

void table::print() const {
    const bool cut = terminal::isOutput();
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        std::size_t width = columnsOf(m_columns[i].title);
        for (const auto& row : m_rows)
            width = std::max(width, columnsOf(cellText(row[i], cut)));
        widths.push_back(width);
    }
    const auto printRow = [&](const auto& cell) {
        std::string line;
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            line += i == 0 ? "" : "  ";
            line += padded(cell(i), widths[i], m_columns[i].side);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        output::line(line);
    };
    printRow([&](std::size_t i) { return m_columns[i].title; });
    printRow([&](std::size_t i) { return std::string(widths[i], '-'); });
    for (const auto& row : m_rows)
        printRow([&](std::size_t i) { return cellText(row[i], cut); });
}

void printPairs(const std::vector<std::pair<std::string_view, std::string>>& pairs) {
    std::size_t width = 0;
    for (const auto& [name, value] : pairs)
        width = std::max(width, columnsOf(name));
    for (const auto& [name, value] : pairs) {
        std::string line = padded(name, width, table::align::left) + "  " + value;
        line.erase(line.find_last_not_of(' ') + 1);
        output::line(line);
    }
}

std::string padded(std::string_view cell, std::size_t width, table::align side) {
    const std::size_t columns = columnsOf(cell);
    const std::string blanks(width > columns ? width - columns : 0, ' ');
    return side == table::align::right ? blanks + std::string(cell) : std::string(cell) + blanks;
}

// Results as aligned columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class table {
public:
    enum class align { left, right };
    struct column {
        std::string title;
        align side = align::left;
    };

    explicit table(std::vector<column> columns);

    // One cell a column, in UTF-8.
    void add(std::vector<std::string> cells);
    [[nodiscard]] bool isEmpty() const { return m_rows.empty(); }

    // To standard output: titles, a rule, the rows. On a terminal long cells are cut, elsewhere
    // they are whole.
    void print() const;

private:
    std::vector<column> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};

// "name  value" lines with the values on one column.
void printPairs(const std::vector<std::pair<std::string_view, std::string>>& pairs);

// `cell` with blanks before or after it up to `width` columns.
[[nodiscard]] std::string padded(std::string_view cell, std::size_t width, table::align side);

// Rows of a table as wells.
#pragma once

#include "NORLEX_wellDescription.h"
#include "NORLEX_wellTableImport.h"
#include "exchange/table_source.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace wellRows {

struct numbers {
    std::optional<double> x; // none: the cell is empty
    std::optional<double> y;
    std::optional<double> altitude;
    std::optional<double> bottom;
};

struct row {
    NORLEX_wellDescription well;
    numbers values;
    std::vector<std::wstring> attributes; // of each attribute column
};

class parser {
public:
    explicit parser(const NORLEX_wellTableOptions& options) : m_options(options) {}

    // Refuses columns that the table does not have.
    [[nodiscard]] bool open(const tableSource& source);

    // Why the row is no well; empty when it is one.
    [[nodiscard]] std::wstring parse(const std::vector<std::wstring>& cells, row& out) const;

private:
    struct numberColumn {
        int column = 0;
        std::optional<double> numbers::*value = nullptr;
    };

    const NORLEX_wellTableOptions& m_options;
    int m_object = 0;
    int m_field = 0;
    int m_name = 0;
    std::array<numberColumn, 4> m_numbers{
        {{0, &numbers::x}, {0, &numbers::y}, {0, &numbers::altitude}, {0, &numbers::bottom}}};
    std::vector<int> m_attributes;
};

} // namespace wellRows

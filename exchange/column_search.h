// Columns of a table by number or by the text of its header.
#pragma once

#include "NORLEX_columnRef.h"
#include "tableReader.h"

#include <string>
#include <vector>

namespace columnSearch {

class header {
public:
    // `table` names the table in messages.
    explicit header(std::wstring table) : m_table(std::move(table)) {}
    // Of cells that are known.
    header(std::wstring table, std::vector<std::wstring> cells)
        : m_table(std::move(table)), m_hasHeader(true), m_cells(std::move(cells)) {}

    // Takes the header off the front of a table that has one.
    [[nodiscard]] bool read(tableRW::tableReader& reader, bool hasHeader);

    // The number of a column, 0 for one that is not set. Refused, naming `what`, when there is none
    // such.
    [[nodiscard]] bool
    find(const NORLEX_columnRef& column, const std::wstring& what, int& number) const;

private:
    [[nodiscard]] bool
    findText(const std::wstring& text, const std::wstring& what, int& number) const;

    std::wstring m_table;
    bool m_hasHeader = false;
    std::vector<std::wstring> m_cells;
};

} // namespace columnSearch

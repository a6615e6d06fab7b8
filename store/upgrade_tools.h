// What the steps of an upgrade share.
//
// The steps run in one transaction, where a rejected statement would undo them all. So what an
// older container may lack, and what an earlier run may have made, is asked for beforehand.
#pragma once

#include <string>
#include <string_view>

class odbc_database;

namespace upgrade {

[[nodiscard]] bool hasTable(odbc_database& db, std::wstring_view table);
[[nodiscard]] bool hasColumn(odbc_database& db, std::wstring_view table, std::wstring_view column);

// Runs `statement`; does nothing in a container without the table.
[[nodiscard]] bool change(odbc_database& db, std::wstring_view table, std::wstring_view statement);

// Adds a TEXT or INTEGER column; does nothing where it is there or the table is not.
[[nodiscard]] bool addColumn(odbc_database& db,
                             std::wstring_view table,
                             std::wstring_view column,
                             std::wstring_view statement);

// The five columns that say who made and changed a row, and when.
[[nodiscard]] bool addAuditColumns(odbc_database& db, std::wstring_view table);

} // namespace upgrade

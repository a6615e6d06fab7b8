// The first column of the first row that a query yields.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class odbc_database;

namespace query {

// Each answers empty or 0 without a row, and without a database.
[[nodiscard]] std::wstring text(odbc_database* db, std::wstring_view statement);
[[nodiscard]] double number(odbc_database* db, std::wstring_view statement);
[[nodiscard]] std::int64_t counter(odbc_database* db, std::wstring_view statement);
// The column of every row.
void texts(odbc_database* db, std::wstring_view statement, std::vector<std::wstring>& out);

// Refuses, with a line, a database that is not there: a closed container hands out null.
[[nodiscard]] bool isOpen(const odbc_database* db);

} // namespace query

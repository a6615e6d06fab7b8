// Queries of one column. Without a database, or with a closed one, there are no rows.
//
// Nor are there when the engine fails; inside a transaction that lets nothing be committed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class odbc_database;

namespace templateQueries {

// Refuses, with a line, a database that is not there: a closed container hands out null.
[[nodiscard]] bool isOpen(const odbc_database* db);

[[nodiscard]] std::wstring text(odbc_database* db, std::wstring_view statement); // of the first row
[[nodiscard]] std::int64_t counter(odbc_database* db, std::wstring_view statement);
[[nodiscard]] std::vector<std::wstring> texts(odbc_database* db, std::wstring_view statement);

} // namespace templateQueries

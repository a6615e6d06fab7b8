// The stamps of version 22: who made and changed a row, and when.
#pragma once

class odbc_database;

namespace upgrade {

// Gives the rows of eight tables the audit columns, and stamps those that have no UUID as made now.
[[nodiscard]] bool stampRows(odbc_database& db);

} // namespace upgrade

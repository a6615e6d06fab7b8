// Indexes beyond those of the schema, and what the engine knows of the distribution of its rows.
#pragma once

class odbc_database;

namespace searchIndexes {

// On request only: a new container has none of them. Look-ups by well, by property and by object
// then cost the same however large the tables are; every insertion costs a little more.
[[nodiscard]] bool create(odbc_database& db);
[[nodiscard]] bool drop(odbc_database& db);
[[nodiscard]] bool areThere(odbc_database& db);

// Without statistics the engine joins large tables in an order that may take minutes.
[[nodiscard]] bool refreshStatistics(odbc_database& db);

} // namespace searchIndexes

// The passport of wells: 31 columns in versions 16 to 23, keys and values since.
#pragma once

class odbc_database;

namespace upgrade {

// The table of one row a well.
[[nodiscard]] bool createFirstPassport(odbc_database& db);

// Moves what the columns say to keys and values. The four of the drilling header stay columns.
[[nodiscard]] bool movePassport(odbc_database& db);

// Gives the keys that were columns their short names.
[[nodiscard]] bool fillShortKeys(odbc_database& db);

// Moves the free metadata of wells to keys and values of the passport.
[[nodiscard]] bool moveMetadata(odbc_database& db);

} // namespace upgrade

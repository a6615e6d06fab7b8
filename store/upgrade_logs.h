// The samples of logs before version 7, which stood in the database.
#pragma once

class odbc_database;

namespace upgrade {

// Writes the samples of each log, a point row with a value each, into the log's sample file and
// removes the rows.
[[nodiscard]] bool moveSamplesToFiles(odbc_database& db);

} // namespace upgrade

// Functions that the local engine lacks or knows for Latin letters only.
#pragma once

struct sqlite3;

// Registers lower() and upper() over all scripts.
[[nodiscard]] bool registerSqliteFunctions(sqlite3* db);

// Which column refers to the key of which table, and which rows of a container are there twice.
#pragma once

#include "NORLEX_checkFinding.h"

#include <vector>

class odbc_database;

namespace containerRelations {

// Rows whose owner is not there, and rows that bear the name of another.
[[nodiscard]] bool find(odbc_database& db, std::vector<NORLEX_checkFinding>& findings);

// Removes the rows whose owner is not there, and those that only they owned.
[[nodiscard]] bool removeOrphans(odbc_database& db, std::vector<NORLEX_checkFinding>& removed);

} // namespace containerRelations

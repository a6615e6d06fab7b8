// Looks through a whole container for what does not belong together.
//
// The schema declares no relation between its tables: what deletes keeps them in order. A program
// that is killed, an older version or a hand in the database may leave rows that nothing leads to.
#pragma once

#include "NORLEX_checkFinding.h"

#include <vector>

class odbc_database;

namespace containerCheck {

// Empty when all is well. False when the container could not be read.
[[nodiscard]] bool run(odbc_database& db, std::vector<NORLEX_checkFinding>& findings);

// What the engine itself says of its file; a server keeps that to its administrator.
[[nodiscard]] bool checkEngine(odbc_database& db, std::vector<NORLEX_checkFinding>& findings);

// Removes what is repairable, in one transaction, and answers what it was. The caller has made a
// copy.
[[nodiscard]] bool repair(odbc_database& db, std::vector<NORLEX_checkFinding>& removed);

} // namespace containerCheck

// The wells that a statement finds.
#pragma once

#include "selection/well_set.h"

#include <string_view>

class odbc_database;

namespace queryRows {

// In order of their keys: engines return distinct rows in orders of their own. Columns 0 to 3 are
// work object, field, name, key. Rows that are of no well are passed over. A
// statement that the database cannot run finds none.
[[nodiscard]] wellSet::list read(odbc_database& db, std::wstring_view statement);

} // namespace queryRows

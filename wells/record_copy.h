// Copies the records of one property into another.
#pragma once

#include "NORLEX_propCopy.h"
#include "wells/property_records.h"

#include <cstdint>

class odbc_database;

namespace recordCopy {

// Points or intervals, with the values of fields of the same name and the files attached to them.
// Fields that the target does not have are added to it. A record that the target holds already,
// same depths in the system that stays and same values, is not added again. To be called inside a
// transaction.
[[nodiscard]] bool run(odbc_database& db,
                       std::int64_t source,
                       const propertyRecords::row& target,
                       propertyRecords::geometry kind,
                       NORLEX_dataDirection direction);

} // namespace recordCopy

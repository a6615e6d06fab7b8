// Rows of points, intervals and picks by their keys.
#pragma once

#include "NORLEX_propRecord.h"
#include "wells/property_records.h"

#include <cstdint>
#include <string>
#include <vector>

class odbc_database;

namespace geometryRows {

// Inserts one record with a value for each field; apostrophes are dropped from the values. To be
// called inside a transaction, whose write lock keeps the key that is read back its own.
[[nodiscard]] bool insert(odbc_database& db,
                          propertyRecords::geometry kind, // points or intervals
                          const NORLEX_geometryRecord& record,
                          const std::vector<std::int64_t>& fields,
                          const std::vector<std::wstring>& values);

// Writes the depths of a record, which must be within the range of depths.
[[nodiscard]] bool
update(odbc_database& db, propertyRecords::geometry kind, const NORLEX_geometryRecord& record);

// Points and intervals; their values are the caller's.
[[nodiscard]] bool
remove(odbc_database& db, propertyRecords::geometry kind, const std::vector<std::int64_t>& keys);

} // namespace geometryRows

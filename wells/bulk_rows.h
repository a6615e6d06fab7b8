// Rows given by a caller as records that can be written.
#pragma once

#include "NORLEX_propRecord.h"
#include "wells/property_records.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class NORLEX_inclinometry;
class odbc_database;

namespace bulkRows {

// The record of a row, its depths completed and in order. `reason` says why there is none: a depth
// that is none or unknown in both systems, or not one value a field.
[[nodiscard]] NORLEX_geometryRecord toRecord(const NORLEX_bulkRow& row,
                                             bool arePoints,
                                             std::size_t fieldCount,
                                             NORLEX_inclinometry* incl,
                                             std::wstring& reason);

// Writes rows of one property; a refusal names the row, counted from 1. To be called inside a
// transaction.
[[nodiscard]] bool write(odbc_database& db,
                         propertyRecords::geometry kind,
                         const std::vector<std::int64_t>& fields,
                         NORLEX_inclinometry* incl,
                         const std::vector<NORLEX_bulkRow>& rows);

} // namespace bulkRows

// Rows of picks: their depths completed, inserted, found.
#pragma once

#include "NORLEX_propRecord.h"

#include <cstdint>
#include <string>

class odbc_database;
class NORLEX_inclinometry;

namespace pickRows {

// The largest type: open properties hold it in a byte.
inline constexpr NORLEX_borderType lastType = 255;

// Refuse, with a line, a type that is none, and depths that cannot be completed with the survey.
[[nodiscard]] bool isType(NORLEX_borderType type);
[[nodiscard]] bool
complete(NORLEX_geometryRecord& record, NORLEX_inclinometry* survey, const std::wstring& border);

// The key of the shallowest pick of a border on a well; 0 when there is none.
[[nodiscard]] std::int64_t find(odbc_database& db, std::uint32_t wellId, std::int64_t borderId);

[[nodiscard]] bool insert(odbc_database& db,
                          std::uint32_t wellId,
                          std::int64_t borderId,
                          const NORLEX_geometryRecord& record);
// The same with the depths in the other order, as picks by absolute depth are written.
[[nodiscard]] bool insertAbsolute(odbc_database& db,
                                  std::uint32_t wellId,
                                  std::int64_t borderId,
                                  const NORLEX_geometryRecord& record);
[[nodiscard]] bool
setType(odbc_database& db, std::uint32_t wellId, std::int64_t borderId, NORLEX_borderType type);

} // namespace pickRows

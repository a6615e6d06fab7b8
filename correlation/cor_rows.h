// Rows of correlations and of border names: found, stamped.
#pragma once

#include "NORLEX_corPoint.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class odbc_database;

namespace corRows {

[[nodiscard]] std::int64_t find(odbc_database& db, const std::wstring& name); // 0: there is none
[[nodiscard]] std::int64_t
findBorder(odbc_database& db, std::int64_t correlationId, const std::wstring& border);

// The rows of correlation_borders that `condition` selects, in the order in which they were made.
void readBorders(odbc_database& db,
                 std::wstring_view condition,
                 std::vector<correlation::borderName>& borders);

// Stamp as edited now.
[[nodiscard]] bool touch(odbc_database& db, std::int64_t correlationId);
[[nodiscard]] bool touchBorder(odbc_database& db, std::int64_t borderId);
[[nodiscard]] bool touchBorders(odbc_database& db, const std::vector<std::int64_t>& borders);

// In messages.
[[nodiscard]] std::wstring quote(const std::wstring& name);

} // namespace corRows

// The field rows of templates: the table `field_template`.
#pragma once

#include "NORLEX_fieldDescr.h"

#include <cstdint>
#include <string>
#include <vector>

class odbc_database;

namespace fieldRows {

// From a query of name, type, precision and short name. The width is not stored and reads as 10.
[[nodiscard]] std::vector<NORLEX_fieldDescr> read(odbc_database* db, const std::wstring& query);

// A precision is kept for numeric fields only.
[[nodiscard]] bool
insert(odbc_database& db, std::int64_t templateId, const NORLEX_fieldDescr& field);

} // namespace fieldRows

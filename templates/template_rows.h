// Rows of templates: the table `base_template`.
#pragma once

#include "NORLEX_dataType.h"

#include <string>

class odbc_database;

namespace templateRows {

// Whether a template may be given the name, or be made of the type; a refusal begins with `what`.
[[nodiscard]] bool isFree(odbc_database& db, const std::wstring& name, const std::wstring& what);
[[nodiscard]] bool mayBeMade(odbc_database& db, NORLEX_dataType type, const std::wstring& what);

// Without fields. The description is the name.
[[nodiscard]] bool insert(odbc_database& db, const std::wstring& name, NORLEX_dataType type);

} // namespace templateRows

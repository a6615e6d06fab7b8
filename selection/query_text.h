// The statement of a query.
#pragma once

#include "NORLEX_query.h"

#include <string>

class odbc_database;

namespace queryText {

// What every statement begins with: work object, field, name and key of wells, each once.
inline constexpr const wchar_t* head = L"SELECT distinct well_base.work_object, well_base.field, "
                                       L"well_base.name, well_base.w_id ";

// Of every type but the geometry wells and the depth window. Empty, with a line in the last error,
// where the query cannot be asked: a type or an operation that is none, an operand that is no
// number where numbers are compared.
[[nodiscard]] std::wstring getQueryString(odbc_database& db, const NORLEX_query& query);

// Whether the wells asked for are those that the statement does not find.
[[nodiscard]] bool isComplement(const NORLEX_query& query);

} // namespace queryText

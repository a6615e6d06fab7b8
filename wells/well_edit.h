// A change to the records of a well that are no properties.
#pragma once

#include <cstdint>
#include <functional>

class odbc_database;

namespace wellEdit {

// `change` in one transaction, with the stamp of the well, which must exist; `announce` tells
// subscribers that the well was changed.
[[nodiscard]] bool
run(odbc_database* db, std::uint32_t wellId, const std::function<bool()>& change, bool announce);

// Whether the statement that `change` ran last found a row; refused with "there is no … `what`".
[[nodiscard]] bool foundRow(const odbc_database& db, const wchar_t* what);

} // namespace wellEdit

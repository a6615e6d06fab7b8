// Who changed what and when: the pieces of statements that fill the audit columns.
#pragma once

#include <string>

class odbc_database;

namespace audit {

// "update_date = <now>, update_user = '<user>'", for an UPDATE.
[[nodiscard]] std::wstring touched(const odbc_database& db);

// "'<uuid>', <now>, <now>, '<user>', '<user>'", the values of the columns
// UUID, create_date, update_date, create_user, update_user.
[[nodiscard]] std::wstring created(const odbc_database& db);

} // namespace audit

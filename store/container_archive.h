// A whole container in one file: its database, its action journal and its file directory.
#pragma once

#include <string>

class odbc_database;
struct NORLEX_contDescription;

namespace containerArchive {

// Nobody writes into a local container in the meantime. Changes of a server's are told apart by
// their transactions, but for its files. Whatever is at `archive` is replaced once all is written.
[[nodiscard]] bool backup(odbc_database& db, const std::wstring& archive);

// Everything is read, and the database in it checked, before anything of the target is touched. A
// local container that is there is replaced with its whole file directory when `replace` says so;
// one on a server is not.
[[nodiscard]] bool
restore(const std::wstring& archive, const NORLEX_contDescription& target, bool replace);

} // namespace containerArchive

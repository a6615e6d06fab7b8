// The copy of a local database that is made before its upgrade.
#pragma once

#include <string>

class odbc_database;

namespace upgrade {

// Copies the database to `<path>.v<version>.bak`. The copy gets its name once it is whole. One that
// is there already is never replaced: it is kept in the copy's stead when it holds the same, and
// otherwise the copy is `<path>.v<version>-2.bak`, or the next number that is free.
[[nodiscard]] bool backUp(odbc_database& db, const std::wstring& path, int version);

} // namespace upgrade

// Copies of files that an upgrade makes: the originals stay, so that the copy of the older database
// still finds them.
#pragma once

#include <string>

class odbc_database;

namespace upgrade {

[[nodiscard]] bool isSameContent(const std::wstring& one, const std::wstring& other);

// Copies `source` to `target` below the file directory, with the transaction that is open. Where
// another file is there already the copy is numbered, "name_2.ext"; where the same content is,
// nothing is copied. Answers the path that holds the content, empty on failure.
[[nodiscard]] std::wstring
copyInto(odbc_database& db, const std::wstring& source, const std::wstring& target);

} // namespace upgrade

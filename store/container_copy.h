// Whole containers from one database to another, of either engine.
#pragma once

#include <string>
#include <vector>

class odbc_database;
struct NORLEX_contDescription;

namespace containerCopy {

// Every row of `from` into a new container, keys included, so that what refers to them still does,
// and every file of the file directory, the action journal among them. `from` is read as it is at
// one moment. A failure leaves nothing of the new container behind.
[[nodiscard]] bool copyTo(odbc_database& from, const NORLEX_contDescription& target);

// The rows without the files.
[[nodiscard]] bool tablesTo(odbc_database& from, const NORLEX_contDescription& target);

// Below a file directory, without it: all files but the action journal, which may be open, and
// those of changes under way.
[[nodiscard]] bool lastingFiles(const std::wstring& root, std::vector<std::wstring>& found);

// The action journal of one file directory into another folder, through its engine.
[[nodiscard]] bool copyJournal(const std::wstring& fromFolder, const std::wstring& toFolder);

} // namespace containerCopy

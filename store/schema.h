// The tables of a container, as the texts that create them.
//
// The same texts serve every engine; only the declaration of a key that the database assigns is the
// engine's own (odbc_database::primary_key) and is spliced in. Each says IF NOT EXISTS, so making a
// table that is there changes nothing.
#pragma once

#include <span>
#include <string_view>

class odbc_database;

namespace schema {

inline constexpr int currentVersion = 36;

// `before`, the key declaration, `after`; a table without such a key has no `after`.
struct table {
    std::wstring_view name;
    std::wstring_view before;
    std::wstring_view after;
};

[[nodiscard]] std::span<const table> containerTables(); // all 36, in order of creation

// Parts of the above that later versions of the schema brought.
[[nodiscard]] std::span<const table> statisticsTables();
[[nodiscard]] std::span<const table> passportTables();
[[nodiscard]] std::span<const table> attachedFileTables();
[[nodiscard]] std::span<const table> plotTemplateTables();

// Made with the first dictionary, not with the container.
[[nodiscard]] std::span<const table> dictionaryTables();
// Of the journal's own database.
[[nodiscard]] std::span<const table> journalTables();

// Stop at the first table that the database rejects.
[[nodiscard]] bool create(odbc_database& db, std::span<const table> tables);
[[nodiscard]] bool create(odbc_database& db, std::wstring_view name); // one of containerTables()

[[nodiscard]] bool createIndexes(odbc_database& db);
[[nodiscard]] bool dropIndexes(odbc_database& db);

} // namespace schema

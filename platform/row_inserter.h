// Many rows in statements of hundreds, many keys in statements of thousands.
#pragma once

#include "platform/sql_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class odbc_database;

class rowInserter {
public:
    // `statement` ends in "VALUES ".
    rowInserter(odbc_database& db, std::wstring_view statement)
        : m_db(db), m_statement(statement) {}

    // A row in its brackets.
    [[nodiscard]] bool add(std::wstring_view row);
    [[nodiscard]] bool finish();

private:
    odbc_database& m_db;
    std::wstring m_statement;
    std::wstring m_rows;
    std::size_t m_count = 0;
};

namespace manyKeys {

inline constexpr std::size_t keysPerStatement = 5000;

// `statement`, which ends in a column's name, for the rows with these keys in it.
[[nodiscard]] bool
update(odbc_database& db, const std::wstring& statement, std::span<const std::int64_t> keys);

// `work` with lists of the keys for IN(…), until it answers false; not at all without keys.
template <typename Key, typename Work>
[[nodiscard]] bool forEachPart(const std::vector<Key>& keys, Work work) {
    for (std::size_t from = 0; from < keys.size(); from += keysPerStatement) {
        const std::span part(keys.data() + from, std::min(keysPerStatement, keys.size() - from));
        if (!work(sqlText::keyList(part)))
            return false;
    }
    return true;
}

// One above the largest key, which `query` selects. To be asked inside a transaction that then
// gives the keys itself.
[[nodiscard]] std::optional<std::int64_t> next(odbc_database& db, std::wstring_view query);

} // namespace manyKeys

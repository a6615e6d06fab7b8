// Many rows in statements of hundreds, many keys in statements of thousands.
#pragma once

#include "odbc_database.h"
#include "platform/sql_text.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class rowBatch {
public:
    rowBatch(odbc_database& db, std::wstring statement) // ends in "VALUES"
        : m_db(db), m_statement(std::move(statement)) {}

    // A row in its brackets.
    [[nodiscard]] bool add(std::wstring_view row) {
        m_rows += m_count++ == 0 ? L' ' : L',';
        m_rows += row;
        return m_count < rowsPerStatement || finish();
    }
    [[nodiscard]] bool finish() {
        if (m_count == 0)
            return true;
        const bool done = m_db.exec(m_statement + m_rows);
        m_rows.clear();
        m_count = 0;
        return done;
    }

private:
    static constexpr std::size_t rowsPerStatement = 500;

    odbc_database& m_db;
    std::wstring m_statement;
    std::wstring m_rows;
    std::size_t m_count = 0;
};

// `work` with lists of the keys for IN(…), until it answers false; not at all without keys.
template <typename Key, typename Work>
[[nodiscard]] bool forEachPart(const std::vector<Key>& keys, Work work) {
    constexpr std::size_t keysPerStatement = 5000;
    for (std::size_t from = 0; from < keys.size(); from += keysPerStatement) {
        const std::span part(keys.data() + from, std::min(keysPerStatement, keys.size() - from));
        if (!work(sqlText::keyList(part)))
            return false;
    }
    return true;
}

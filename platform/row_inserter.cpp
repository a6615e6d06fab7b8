#include "platform/row_inserter.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"

using namespace sqlText;

namespace {

constexpr std::size_t rowsPerStatement = 500;
constexpr std::size_t longestStatement = 4U << 20U; // characters: texts may be long

} // namespace

bool rowInserter::add(std::wstring_view row) {
    if (m_count++ > 0)
        m_rows += L',';
    m_rows += row;
    return (m_count < rowsPerStatement && m_rows.size() < longestStatement) || finish();
}

bool rowInserter::finish() {
    if (m_count == 0)
        return true;
    const bool done = m_db.exec(sql(m_statement, m_rows));
    m_rows.clear();
    m_count = 0;
    return done;
}

namespace manyKeys {

bool update(odbc_database& db, const std::wstring& statement, std::span<const std::int64_t> keys) {
    while (!keys.empty()) {
        const auto part = keys.first(std::min(keys.size(), keysPerStatement));
        if (!db.exec(sql(statement, L" IN(", keyList(part), L")")))
            return false;
        keys = keys.subspan(part.size());
    }
    return true;
}

std::optional<std::int64_t> next(odbc_database& db, std::wstring_view query) {
    const auto row = db.query(query);
    if (row && row->next())
        return row->get_counter(0) + 1; // of an empty table the maximum is NULL, which reads as 0
    refuse(L"the keys in use cannot be read: " + db.last_error());
    return std::nullopt;
}

} // namespace manyKeys

#include "store/metadata.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"

#include <algorithm>
#include <span>

using namespace sqlText;

namespace metadata {

namespace {

constexpr std::size_t rowsPerStatement = 500;

std::wstring ownedBy(const std::wstring& group, std::int64_t object) {
    return sql(L"m_group = ", quoted(group), L" AND obj_id = ", key(object));
}

bool insert(odbc_database& db,
            const std::wstring& group,
            std::int64_t object,
            std::span<const pairs::value_type> values) {
    const std::wstring owner = sql(L"(", quoted(group), L", ", key(object), L", ");
    std::wstring statement = L"INSERT INTO meta (m_group, obj_id, key, value) VALUES ";
    for (const auto& [name, value] : values)
        statement += sql(owner, quoted(name), L", ", quoted(value), L"),");
    statement.pop_back();
    return db.exec(statement);
}

} // namespace

bool isSet(odbc_database& db,
           const std::wstring& group,
           std::int64_t object,
           const std::wstring& name) {
    const auto rows = db.query(
        sql(L"SELECT m_id FROM meta WHERE ", ownedBy(group, object), L" AND key = ", quoted(name)));
    return rows && rows->next();
}

std::wstring
get(odbc_database& db, const std::wstring& group, std::int64_t object, const std::wstring& name) {
    const auto rows = db.query(sql(
        L"SELECT value FROM meta WHERE ", ownedBy(group, object), L" AND key = ", quoted(name)));
    return rows && rows->next() ? rows->get_text(0) : std::wstring();
}

pairs getAll(odbc_database& db, const std::wstring& group, std::int64_t object) {
    pairs found;
    const auto rows = db.query(
        sql(L"SELECT key, value FROM meta WHERE ", ownedBy(group, object), L" ORDER BY m_id"));
    while (rows && rows->next())
        found.emplace_back(rows->get_text(0), rows->get_text(1));
    return found;
}

bool set(odbc_database& db,
         const std::wstring& group,
         std::int64_t object,
         const std::wstring& name,
         const std::wstring& value) {
    transaction change(&db);
    if (!change.isOpen()
        || !db.exec(sql(L"UPDATE meta SET value = ",
                        quoted(value),
                        L" WHERE ",
                        ownedBy(group, object),
                        L" AND key = ",
                        quoted(name))))
        return false;
    if (db.affected_rows() == 0 && !add(db, group, object, {{name, value}}))
        return false;
    return change.commit();
}

bool add(odbc_database& db, const std::wstring& group, std::int64_t object, const pairs& values) {
    if (values.size() <= rowsPerStatement)
        return values.empty() || insert(db, group, object, values);
    transaction change(&db);
    if (!change.isOpen())
        return false;
    for (auto rest = std::span(values); !rest.empty();) {
        const std::size_t count = std::min(rest.size(), rowsPerStatement);
        if (!insert(db, group, object, rest.first(count)))
            return false;
        rest = rest.subspan(count);
    }
    return change.commit();
}

bool renameKey(odbc_database& db,
               const std::wstring& group,
               std::int64_t object,
               const std::wstring& oldKey,
               const std::wstring& newKey) {
    return db.exec(sql(L"UPDATE meta SET key = ",
                       quoted(newKey),
                       L" WHERE ",
                       ownedBy(group, object),
                       L" AND key = ",
                       quoted(oldKey)));
}

bool clear(odbc_database& db, const std::wstring& group, std::int64_t object) {
    return db.exec(sql(L"DELETE FROM meta WHERE ", ownedBy(group, object)));
}

} // namespace metadata

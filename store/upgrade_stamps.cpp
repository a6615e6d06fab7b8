#include "store/upgrade_stamps.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/uuid.h"
#include "store/upgrade_tools.h"

#include <algorithm>
#include <array>
#include <vector>

using namespace sqlText;

namespace upgrade {

namespace {

struct stamped {
    std::wstring_view table;
    std::wstring_view key;
};

constexpr std::array<stamped, 8> tables = {{
    {L"base_version", L"id"},
    {L"well_base", L"w_id"},
    {L"property", L"pr_id"},
    {L"base_template", L"bt_id"},
    {L"correlation", L"cor_id"},
    {L"correlation_borders", L"b_id"},
    {L"dict_main", L"dict_id"},
    {L"dict_link", L"link_id"},
}};

// A row that has a UUID keeps it: others may know it by that.
std::vector<std::int64_t> unstamped(odbc_database& db, const stamped& one) {
    std::vector<std::int64_t> keys;
    const auto rows =
        db.query(sql(L"SELECT ", one.key, L" FROM ", one.table, L" WHERE UUID IS NULL"));
    while (rows && rows->next())
        keys.push_back(rows->get_counter(0));
    return keys;
}

bool stamp(odbc_database& db, const stamped& one) {
    const std::wstring now = db.cur_time();
    const std::wstring user = quoted(db.get_user());
    const auto keys = unstamped(db, one);
    return std::ranges::all_of(keys, [&](std::int64_t row) {
        return db.exec(sql(L"UPDATE ",
                           one.table,
                           L" SET UUID = ",
                           quoted(newUuid()),
                           L", create_date = ",
                           now,
                           L", update_date = ",
                           now,
                           L", create_user = ",
                           user,
                           L", update_user = ",
                           user,
                           L" WHERE ",
                           one.key,
                           L" = ",
                           key(row)));
    });
}

} // namespace

// Dictionaries have no tables before the first one is made.
bool stampRows(odbc_database& db) {
    return std::ranges::all_of(tables, [&](const stamped& one) {
        return !hasTable(db, one.table) || (addAuditColumns(db, one.table) && stamp(db, one));
    });
}

} // namespace upgrade

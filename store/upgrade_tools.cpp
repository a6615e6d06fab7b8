#include "store/upgrade_tools.h"

#include "odbc_database.h"
#include "platform/sql_text.h"

#include <algorithm>
#include <array>

using namespace sqlText;

namespace upgrade {

bool hasTable(odbc_database& db, std::wstring_view table) {
    return db.query(sql(L"SELECT 1 FROM ", table, L" WHERE 1 = 0")) != nullptr;
}

bool hasColumn(odbc_database& db, std::wstring_view table, std::wstring_view column) {
    return db.query(sql(L"SELECT ", column, L" FROM ", table, L" WHERE 1 = 0")) != nullptr;
}

bool change(odbc_database& db, std::wstring_view table, std::wstring_view statement) {
    return !hasTable(db, table) || db.exec(statement);
}

bool addColumn(odbc_database& db,
               std::wstring_view table,
               std::wstring_view column,
               std::wstring_view statement) {
    return hasColumn(db, table, column) || change(db, table, statement);
}

bool addAuditColumns(odbc_database& db, std::wstring_view table) {
    struct addition {
        std::wstring_view column;
        std::wstring_view text;
    };
    static constexpr std::array<addition, 5> columns = {{
        {L"UUID", L" ADD UUID TEXT"},
        {L"create_date", L" ADD create_date TEXT"},
        {L"update_date", L" ADD update_date TEXT"},
        {L"create_user", L" ADD create_user TEXT"},
        {L"update_user", L" ADD update_user TEXT"},
    }};
    return std::ranges::all_of(columns, [&](const addition& added) {
        return addColumn(db, table, added.column, sql(L"ALTER TABLE ", table, added.text));
    });
}

} // namespace upgrade

#include "correlation/cor_rows.h"

#include "odbc_database.h"
#include "platform/row_inserter.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "wells/query.h"

using namespace sqlText;

namespace corRows {

std::int64_t find(odbc_database& db, const std::wstring& name) {
    return query::counter(&db,
                          sql(L"SELECT cor_id FROM correlation WHERE name = ", quotedName(name)));
}

std::int64_t findBorder(odbc_database& db, std::int64_t correlationId, const std::wstring& border) {
    return query::counter(&db,
                          sql(L"SELECT b_id FROM correlation_borders WHERE cor_id =",
                              key(correlationId),
                              L" AND name = ",
                              quotedName(border)));
}

void readBorders(odbc_database& db,
                 std::wstring_view condition,
                 std::vector<correlation::borderName>& borders) {
    borders.clear();
    const auto rows = db.query(sql(L"SELECT b_id, name, b_group FROM correlation_borders WHERE ",
                                   condition,
                                   L" ORDER BY b_id"));
    while (rows && rows->next())
        borders.push_back({rows->get_counter(0), rows->get_text(1), rows->get_text(2)});
}

bool touch(odbc_database& db, std::int64_t correlationId) {
    return db.exec(sql(
        L"UPDATE correlation SET ", audit::touched(db), L" WHERE cor_id =", key(correlationId)));
}

bool touchBorder(odbc_database& db, std::int64_t borderId) {
    return touchBorders(db, {borderId});
}

bool touchBorders(odbc_database& db, const std::vector<std::int64_t>& borders) {
    return manyKeys::forEachPart(borders, [&](const std::wstring& keys) {
        return db.exec(sql(L"UPDATE correlation_borders SET ",
                           audit::touched(db),
                           L" WHERE b_id IN(",
                           keys,
                           L")"));
    });
}

std::wstring quote(const std::wstring& name) {
    return L"\"" + name + L"\"";
}

} // namespace corRows

#include "wells/geometry_rows.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "wells/query.h"

#include <algorithm>
#include <span>

using namespace sqlText;
using propertyRecords::geometry;

namespace geometryRows {

namespace {

constexpr std::size_t keysPerStatement = 5000;

std::wstring insertText(geometry kind, const NORLEX_geometryRecord& r) {
    if (kind == geometry::points)
        return sql(L"INSERT INTO point_data (depth, depth_abs, type) VALUES(",
                   fixed(r.top, 2),
                   L",",
                   fixed(r.topAbs, 2),
                   L",",
                   key(r.flag),
                   L")");
    return sql(L"INSERT INTO interval_data (top, bot, top_abs, bot_abs) VALUES(",
               fixed(r.top, 2),
               L",",
               fixed(r.bot, 2),
               L",",
               fixed(r.topAbs, 2),
               L",",
               fixed(r.botAbs, 2),
               L")");
}

std::wstring updateText(geometry kind, const NORLEX_geometryRecord& r) {
    switch (kind) {
    case geometry::points:
        return sql(L"UPDATE point_data SET depth_abs = ",
                   fixed(r.topAbs, 2),
                   L", depth = ",
                   fixed(r.top, 2),
                   L" WHERE obj_id = ",
                   key(r.obj_id));
    case geometry::intervals:
        return sql(L"UPDATE interval_data SET top_abs = ",
                   fixed(r.topAbs, 2),
                   L", bot_abs = ",
                   fixed(r.botAbs, 2),
                   L", top = ",
                   fixed(r.top, 2),
                   L", bot = ",
                   fixed(r.bot, 2),
                   L" WHERE obj_id = ",
                   key(r.obj_id));
    default:
        return sql(L"UPDATE correlation_data SET depth_abs = ",
                   fixed(r.topAbs, 2),
                   L", depth_real = ",
                   fixed(r.top, 2),
                   L" WHERE d_id = ",
                   key(r.obj_id));
    }
}

} // namespace

bool insert(odbc_database& db,
            geometry kind,
            const NORLEX_geometryRecord& r,
            const std::vector<std::int64_t>& fields,
            const std::vector<std::wstring>& values) {
    if (!db.exec(insertText(kind, r)))
        return false;
    const std::int64_t id =
        query::counter(&db,
                       kind == geometry::points ? L"SELECT max(obj_id) FROM point_data"
                                                : L"SELECT max(obj_id) FROM interval_data");
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (!db.exec(sql(L"INSERT INTO val (f_id, value, obj_id) VALUES (",
                         key(fields[i]),
                         L",",
                         quotedName(values[i]),
                         L",",
                         key(id),
                         L")")))
            return false;
    return true;
}

bool update(odbc_database& db, geometry kind, const NORLEX_geometryRecord& record) {
    return db.exec(updateText(kind, record));
}

bool remove(odbc_database& db, geometry kind, const std::vector<std::int64_t>& keys) {
    const wchar_t* table = kind == geometry::points ? L"point_data" : L"interval_data";
    for (std::size_t from = 0; from < keys.size(); from += keysPerStatement) {
        const std::span part(keys.data() + from, std::min(keysPerStatement, keys.size() - from));
        if (!db.exec(sql(L"DELETE FROM ", table, L" WHERE obj_id IN(", keyList(part), L")")))
            return false;
    }
    return true;
}

} // namespace geometryRows

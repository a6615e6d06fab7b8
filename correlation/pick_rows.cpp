#include "correlation/pick_rows.h"

#include "NORLEX_inclinometry.h"
#include "correlation/cor_rows.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "wells/query.h"
#include "wells/record_depths.h"

using namespace sqlText;

namespace pickRows {

bool isType(NORLEX_borderType type) {
    return (type >= 0 && type <= lastType)
           || refuse(L"the border type " + std::to_wstring(type)
                     + L" is not known; 0 to 255 are expected");
}

bool complete(NORLEX_geometryRecord& record,
              NORLEX_inclinometry* survey,
              const std::wstring& border) {
    const auto reason = recordDepths::completePoint(record, survey);
    return reason.empty() || refuse(L"the border " + corRows::quote(border) + L": " + reason);
}

std::int64_t find(odbc_database& db, std::uint32_t wellId, std::int64_t borderId) {
    return query::counter(&db,
                          sql(L"SELECT d_id FROM correlation_data WHERE w_id =",
                              key(wellId),
                              L" AND b_id =",
                              key(borderId),
                              L" ORDER BY depth_real"));
}

bool insert(odbc_database& db,
            std::uint32_t wellId,
            std::int64_t borderId,
            const NORLEX_geometryRecord& record) {
    return db.exec(sql(L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs) VALUES (",
                       key(wellId),
                       L", ",
                       key(borderId),
                       L", ",
                       fixed(record.top, 2),
                       L", ",
                       fixed(record.topAbs, 2),
                       L")"));
}

bool insertAbsolute(odbc_database& db,
                    std::uint32_t wellId,
                    std::int64_t borderId,
                    const NORLEX_geometryRecord& record) {
    return db.exec(sql(L"INSERT INTO correlation_data (w_id, b_id, depth_abs, depth_real) VALUES (",
                       key(wellId),
                       L", ",
                       key(borderId),
                       L", ",
                       fixed(record.topAbs, 2),
                       L", ",
                       fixed(record.top, 2),
                       L")"));
}

bool setType(odbc_database& db,
             std::uint32_t wellId,
             std::int64_t borderId,
             NORLEX_borderType type) {
    return db.exec(sql(L"UPDATE correlation_data SET type =",
                       key(type),
                       L" WHERE w_id =",
                       key(wellId),
                       L" AND b_id =",
                       key(borderId)));
}

} // namespace pickRows

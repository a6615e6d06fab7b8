#include "wells/well_records.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "wells/query.h"

using namespace sqlText;

namespace wellRecords {

std::uint32_t find(odbc_database& db, const NORLEX_wellDescription& well) {
    return static_cast<std::uint32_t>(
        query::counter(&db,
                       sql(L"SELECT w_id FROM well_base WHERE name = ",
                           quotedName(well.name),
                           L" AND field = ",
                           quotedName(well.field),
                           L" AND work_object = ",
                           quotedName(well.workObject))));
}

std::optional<NORLEX_wellDescription> read(odbc_database& db, std::uint32_t wellId) {
    const auto row = db.query(
        sql(L"SELECT work_object, field, name, w_id FROM well_base WHERE w_id = ", key(wellId)));
    if (row && row->next())
        return NORLEX_wellDescription{row->get_text(0), row->get_text(1), row->get_text(2), wellId};
    refuseMissing(&db, L"there is no well with the key " + key(wellId));
    return std::nullopt;
}

bool touch(odbc_database& db, std::uint32_t wellId) {
    if (!db.exec(sql(L"UPDATE well_base SET ", audit::touched(db), L" WHERE w_id = ", key(wellId))))
        return false;
    return db.affected_rows() != 0 || refuse(L"there is no well with the key " + key(wellId));
}

bool touchContainer(odbc_database& db) {
    return db.exec(sql(L"UPDATE base_version SET ", audit::touched(db), L" WHERE id = 1"));
}

} // namespace wellRecords

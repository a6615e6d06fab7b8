#include "wells/property_records.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "wells/query.h"

using namespace sqlText;

namespace propertyRecords {

namespace {

row rowOf(const odbc_result& rows) {
    return {rows.get_counter(0),
            static_cast<std::uint32_t>(rows.get_counter(1)),
            {rows.get_text(2), rows.get_text(3)},
            rows.get_text(4),
            rows.get_text(5),
            getDataTypeByEnum(rows.get_text(6))};
}

} // namespace

geometry geometryOf(NORLEX_dataType type) {
    switch (type) {
    case NORLEX_dataTypeMarker:
    case NORLEX_dataTypeSerial:
        return geometry::points;
    case NORLEX_dataTypeInterval:
    case NORLEX_dataTypeColumn:
    case NORLEX_dataTypeRastr:
    case NORLEX_dataTypeVDMInterval:
    case NORLEX_dataTypeVDMAvg:
        return geometry::intervals;
    case NORLEX_dataTypeBorder:
        return geometry::picks;
    case NORLEX_dataTypeLog:
        return geometry::samples;
    default:
        return geometry::none;
    }
}

bool isVelocity(NORLEX_dataType type) {
    return type == NORLEX_dataTypeVDMInterval || type == NORLEX_dataTypeVDMAvg;
}

std::int64_t find(odbc_database& db, std::uint32_t wellId, const NORLEX_propDescription& prop) {
    return query::counter(&db,
                          sql(L"SELECT pr_id FROM property WHERE name = ",
                              quotedName(prop.name),
                              L" AND p_group = ",
                              quotedName(prop.group),
                              L" AND w_id = ",
                              key(wellId)));
}

std::optional<row> read(odbc_database& db, std::int64_t propertyId) {
    const auto rows = db.query(sql(
        L"SELECT property.pr_id, property.w_id, property.name, property.p_group, property.description, base_template.name, base_template.type FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE property.pr_id = ",
        key(propertyId)));
    if (rows && rows->next())
        return rowOf(*rows);
    refuseMissing(&db, L"there is no property with the key " + key(propertyId));
    return std::nullopt;
}

std::vector<row> ofWell(odbc_database& db, std::uint32_t wellId) {
    std::vector<row> out;
    const auto rows = db.query(sql(
        L"SELECT property.pr_id, property.w_id, property.name, property.p_group, property.description, base_template.name, base_template.type FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE property.w_id = ",
        key(wellId),
        L" ORDER BY property.p_group, property.name"));
    while (rows && rows->next())
        out.push_back(rowOf(*rows));
    return out;
}

bool insert(odbc_database& db,
            std::uint32_t wellId,
            std::uint32_t templateId,
            const NORLEX_propDescription& prop) {
    return db.exec(sql(
        L"INSERT INTO property (w_id, name, p_group, bt_id, UUID, create_date, update_date, create_user, update_user) VALUES(",
        key(wellId),
        L",",
        quotedName(prop.name),
        L",",
        quotedName(prop.group),
        L",",
        key(templateId),
        L", ",
        audit::created(db),
        L")"));
}

bool insertLog(odbc_database& db,
               std::uint32_t wellId,
               std::uint32_t templateId,
               const NORLEX_propDescription& prop,
               const std::wstring& comment) {
    // two blanks before bt_id are part of the text
    return db.exec(sql(
        L"INSERT INTO property (w_id, name, p_group,  bt_id, description, UUID, create_date, update_date, create_user, update_user) VALUES(",
        key(wellId),
        L",",
        quotedName(prop.name),
        L",",
        quotedName(prop.group),
        L",",
        key(templateId),
        L",",
        quoted(comment),
        L", ",
        audit::created(db),
        L")"));
}

bool touch(odbc_database& db, std::int64_t propertyId) {
    if (!db.exec(
            sql(L"UPDATE property SET ", audit::touched(db), L" WHERE pr_id = ", key(propertyId))))
        return false;
    return db.affected_rows() != 0
           || refuse(L"there is no property with the key " + key(propertyId));
}

std::wstring standardTemplate(odbc_database& db, NORLEX_dataType type) {
    return query::text(&db,
                       sql(L"SELECT name FROM base_template WHERE type = ",
                           quoted(getDataTypeEnum(type)),
                           L" ORDER BY bt_id"));
}

} // namespace propertyRecords

// Deleting a property with everything that belongs to it.
#include "NORLEX_propTemplate.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "store/journal.h"
#include "store/metadata.h"
#include "store/well_path.h"
#include "wells/announce.h"
#include "wells/geometry_rows.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_state.h"
#include "wells/query.h"
#include "wells/well_records.h"

using namespace sqlText;
using propertyRecords::geometry;

namespace {

// Geometry keys of one field. Where an earlier field of the same records has taken the geometry
// already, the join yields a NULL.
std::vector<std::int64_t> geometryKeys(odbc_database& db, geometry kind, std::int64_t fieldId) {
    const auto rows = db.query(
        kind == geometry::points
            ? sql(
                L"SELECT cast(point_data.obj_id as text) as obj_id  FROM val LEFT JOIN point_data ON val.obj_id = point_data.obj_id  WHERE val.f_id = ",
                key(fieldId))
            : sql(
                L"SELECT cast(interval_data.obj_id as text) as obj_id  FROM val LEFT JOIN interval_data ON val.obj_id = interval_data.obj_id  WHERE val.f_id = ",
                key(fieldId)));
    std::vector<std::int64_t> keys;
    while (rows && rows->next())
        if (!rows->is_null(0))
            keys.push_back(rows->get_counter(0));
    return keys;
}

bool removeFieldGeometry(odbc_database& db, geometry kind, std::int64_t fieldId) {
    if (kind != geometry::points && kind != geometry::intervals)
        return true;
    return geometryRows::remove(db, kind, geometryKeys(db, kind, fieldId));
}

bool removeFields(odbc_database& db, std::int64_t propertyId, geometry kind) {
    std::vector<std::int64_t> fields;
    {
        const auto rows = db.query(sql(L"SELECT f_id FROM field WHERE pr_id = ", key(propertyId)));
        while (rows && rows->next())
            fields.push_back(rows->get_counter(0));
    }
    for (const auto field : fields)
        if (!removeFieldGeometry(db, kind, field)
            || !db.exec(sql(L"DELETE FROM val WHERE f_id = ", key(field)))
            || !db.exec(sql(L"DELETE FROM field WHERE f_id = ", key(field)))
            // files attached to the cells of the field
            || !db.exec(sql(L"DELETE FROM prop_link WHERE fld_id = ", key(field))))
            return false;
    return true;
}

// What a kind of property keeps outside its own rows. Either kind of construction clears both
// tables: they make one picture of the well.
bool removeKindData(odbc_database& db, std::uint32_t wellId, NORLEX_dataType type) {
    if (type != NORLEX_dataTypeConstruction && type != NORLEX_dataTypeWorkConstruction)
        return true;
    return db.exec(sql(L"DELETE FROM well_construction WHERE w_id = ", key(wellId)))
           && db.exec(sql(L"DELETE FROM construction WHERE w_id = ", key(wellId)));
}

// The picks of the correlation that a border property mirrors; the two share their name.
bool removePicks(odbc_database& db, std::uint32_t wellId, const std::wstring& name) {
    const std::int64_t id =
        query::counter(&db, sql(L"SELECT cor_id FROM correlation WHERE name = ", quotedName(name)));
    return id == 0
           || db.exec(sql(
               L"DELETE FROM correlation_data WHERE b_id IN (SELECT b_id FROM correlation_borders WHERE cor_id = ",
               key(id),
               L") AND w_id = ",
               key(wellId)));
}

struct found {
    std::int64_t id = 0;
    NORLEX_dataType type = NORLEX_dataTypeUnknown;
};

found findRow(odbc_database& db, std::uint32_t wellId, const NORLEX_propDescription& prop) {
    found out;
    std::uint32_t templateId = 0;
    {
        const auto row = db.query(
            sql(L"SELECT cast(pr_id as text), bt_id, description FROM property WHERE name = ",
                quotedName(prop.name),
                L" AND p_group = ",
                quotedName(prop.group),
                L" AND w_id = ",
                key(wellId)));
        if (!row || !row->next())
            return out;
        out.id = row->get_counter(0);
        templateId = static_cast<std::uint32_t>(row->get_counter(1));
    }
    out.type = NORLEX_propTemplate::getType(&db, templateId);
    return out;
}

bool removeRows(odbc_database& db,
                std::uint32_t wellId,
                const NORLEX_propDescription& prop,
                const found& property) {
    const auto kind = propertyRecords::geometryOf(property.type);
    return removeKindData(db, wellId, property.type)
           && (kind != geometry::samples
               || db.files().remove(samplePathOf(NORLEX_getWellPath(&db, wellId), prop)))
           && (kind != geometry::picks || removePicks(db, wellId, prop.name))
           && removeFields(db, property.id, kind)
           && db.exec(sql(
               L"DELETE FROM meta WHERE obj_id = ", key(property.id), L" AND m_group = 'property'"))
           // attached files
           && db.exec(sql(L"DELETE FROM file_link WHERE pr_id = ", key(property.id)))
           && db.exec(sql(L"DELETE FROM property WHERE pr_id = ", key(property.id)))
           && (!propertyRecords::isVelocity(property.type)
               || db.exec(sql(L"DELETE FROM vdm_data WHERE w_id = ", key(wellId))));
}

} // namespace

bool NORLEX_wellProperty::removeSilent(odbc_database* db,
                                       std::uint32_t wellId,
                                       const NORLEX_propDescription& given) {
    if (!query::isOpen(db))
        return false;
    const auto prop = names::plain(given);
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    const found property = findRow(*db, wellId, prop);
    if (property.id == 0)
        return refuse(L"the well with the key " + key(wellId) + L" has no property "
                      + names::shown(prop));
    return removeRows(*db, wellId, prop, property) && wellRecords::touch(*db, wellId)
           && edit.commit();
}

bool NORLEX_wellProperty::remove() {
    if (!isOK())
        return refuse(L"the property is not open");
    const auto well = wellRecords::read(*m_db, m_state->wellId).value_or(NORLEX_wellDescription{});
    transaction edit(m_db);
    const auto prop = getDescr(m_db, m_state->id); // it may have been renamed since it was opened
    if (!edit.isOpen() || !removeSilent(m_db, m_state->wellId, prop))
        return false;
    journal::add(*m_db,
                 eventKind::property,
                 eventAction::remove,
                 names::shown(well) + L": " + names::shown(prop));
    announce::afterCommit(*m_db, [well, prop](auto& observer, const auto& container) {
        observer.deleteProperty(container, well, prop);
    });
    if (!edit.commit())
        return false;
    m_state->ok = false;
    return true;
}

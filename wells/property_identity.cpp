// Looking properties up by their names, and the comment.
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "wells/announce.h"
#include "wells/property_records.h"
#include "wells/query.h"
#include "wells/well_records.h"

using namespace sqlText;

bool NORLEX_wellProperty::isExist(odbc_database* db,
                                  std::uint32_t wellId,
                                  const NORLEX_propDescription& prop) {
    return getID(db, wellId, prop) != 0;
}

bool NORLEX_wellProperty::isExist(odbc_database* db,
                                  const NORLEX_wellDescription& well,
                                  const NORLEX_propDescription& prop) {
    const std::uint32_t wellId = db != nullptr ? wellRecords::find(*db, well) : 0;
    return wellId != 0 && isExist(db, wellId, prop);
}

std::wstring NORLEX_wellProperty::getDataTypeStringByName(odbc_database* db,
                                                          std::uint32_t wellId,
                                                          const NORLEX_propDescription& prop) {
    return query::text(
        db,
        sql(L"SELECT base_template.type FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE property.name = ",
            quotedName(prop.name),
            L" AND property.p_group = ",
            quotedName(prop.group),
            L" AND property.w_id = ",
            key(wellId)));
}

bool NORLEX_wellProperty::isExistGroup(odbc_database* db,
                                       std::uint32_t wellId,
                                       const std::wstring& group) {
    const auto rows = query::isOpen(db)
                          ? db->query(sql(L"SELECT p_group FROM property WHERE p_group = ",
                                          quotedName(group),
                                          L" AND w_id = ",
                                          key(wellId)))
                          : nullptr;
    return rows && rows->next();
}

bool NORLEX_wellProperty::isExistAny(odbc_database* db,
                                     std::uint32_t wellId,
                                     const std::wstring& name) {
    return query::counter(db,
                          sql(L"SELECT pr_id FROM property WHERE name = ",
                              quotedName(name),
                              L" AND w_id = ",
                              key(wellId)))
           != 0;
}

std::int64_t NORLEX_wellProperty::getID(odbc_database* db,
                                        std::uint32_t wellId,
                                        const NORLEX_propDescription& prop) {
    return db != nullptr ? propertyRecords::find(*db, wellId, prop) : 0;
}

NORLEX_propDescription NORLEX_wellProperty::getDescr(odbc_database* db, std::int64_t propertyId) {
    const auto rows =
        query::isOpen(db)
            ? db->query(sql(L"SELECT name, p_group FROM property WHERE pr_id = ", key(propertyId)))
            : nullptr;
    if (!rows || !rows->next())
        return {};
    return {rows->get_text(0), rows->get_text(1)};
}

void NORLEX_wellProperty::getGroupList(odbc_database* db,
                                       std::uint32_t wellId,
                                       std::vector<std::wstring>& groups) {
    query::texts(db,
                 sql(L"SELECT distinct(p_group) FROM property WHERE w_id = ",
                     key(wellId),
                     L" AND p_group <> '' ORDER BY p_group"),
                 groups);
}

void NORLEX_wellProperty::getListForGroup(odbc_database* db,
                                          std::uint32_t wellId,
                                          const std::wstring& group,
                                          std::vector<std::wstring>& names) {
    query::texts(db,
                 sql(L"SELECT name FROM property WHERE w_id = ",
                     key(wellId),
                     L" AND p_group=",
                     quotedName(group),
                     L" ORDER BY p_group"),
                 names);
}

bool NORLEX_wellProperty::setComment(odbc_database* db,
                                     std::int64_t propertyId,
                                     const std::wstring& text) {
    const auto row = query::isOpen(db) ? propertyRecords::read(*db, propertyId) : std::nullopt;
    const auto well = row ? wellRecords::read(*db, row->wellId) : std::nullopt;
    if (!well)
        return false;
    transaction edit(db);
    if (!edit.isOpen()
        || !db->exec(sql(L"UPDATE property SET description = ",
                         quoted(text),
                         L" WHERE pr_id = ",
                         key(propertyId)))
        || !propertyRecords::touch(*db, propertyId))
        return false;
    announce::afterCommit(
        *db, [well = *well, prop = row->description](auto& observer, const auto& container) {
            observer.updateDataProperty(0, container, well, prop);
        });
    return edit.commit();
}

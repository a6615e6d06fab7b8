// Renaming a well or one of its properties: the rows, and the files that lie under the names.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "store/journal.h"
#include "store/well_path.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/well_records.h"

using namespace sqlText;

namespace {

std::wstring updateNames(const NORLEX_wellDescription& from, const NORLEX_wellDescription& to) {
    if (from.workObject != to.workObject)
        return sql(L"UPDATE well_base SET work_object = ",
                   quotedName(to.workObject),
                   L", field = ",
                   quotedName(to.field),
                   L", name = ",
                   quotedName(to.name),
                   L" WHERE w_id=",
                   key(from.wellId));
    if (from.field == to.field)
        return sql(L"UPDATE well_base SET name = ",
                   quotedName(to.name),
                   L" WHERE w_id=",
                   key(from.wellId));
    if (from.name == to.name)
        return sql(L"UPDATE well_base SET field = ",
                   quotedName(to.field),
                   L" WHERE w_id=",
                   key(from.wellId));
    return sql(L"UPDATE well_base SET name = ",
               quotedName(to.name),
               L", field = ",
               quotedName(to.field),
               L" WHERE w_id=",
               key(from.wellId));
}

bool moveFolder(odbc_database& db,
                const NORLEX_wellDescription& from,
                const NORLEX_wellDescription& to) {
    const std::wstring folder = NORLEX_getWellPath(&db, from);
    return !files::isFolder(folder) || db.files().move(folder, NORLEX_getWellPath(&db, to));
}

bool moveSamples(odbc_database& db,
                 std::uint32_t wellId,
                 const NORLEX_propDescription& from,
                 const NORLEX_propDescription& to) {
    const std::wstring wellPath = NORLEX_getWellPath(&db, wellId);
    const std::wstring file = samplePathOf(wellPath, from);
    return !files::isFile(file) || db.files().move(file, samplePathOf(wellPath, to));
}

} // namespace

bool NORLEX_well::rename(const NORLEX_wellDescription& newDescription) {
    if (!m_ok)
        return refuse(L"the well is not open");
    auto to = names::plain(newDescription);
    to.wellId = m_wellId;
    if (!names::areStorable(to))
        return false;
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    const auto from = getDescription();
    if (from == to)
        return edit.commit();
    if (isExist(m_db, to))
        return refuse(L"the well " + names::shown(to)
                      + L" exists already; another name, field or work object is expected");
    if (!m_db->exec(updateNames(from, to)) || !moveFolder(*m_db, from, to) || !updateEditTime())
        return false;
    journal::add(*m_db,
                 eventKind::well,
                 eventAction::rename,
                 names::shown(from) + L" -> " + names::shown(to));
    announce::afterCommit(*m_db, [from, to](auto& observer, const auto& container) {
        observer.renameWell(container, from, to);
    });
    return edit.commit();
}

bool NORLEX_well::setName(const std::wstring& name) {
    return rename({getWorkObjectName(), getFld(), name, m_wellId});
}

bool NORLEX_well::setName(const std::wstring& name, const std::wstring& field) {
    return rename({getWorkObjectName(), field, name, m_wellId});
}

bool NORLEX_well::setFld(const std::wstring& field) {
    return rename({getWorkObjectName(), field, getName(), m_wellId});
}

bool NORLEX_well::renameProperty(const NORLEX_propDescription& oldProp,
                                 const NORLEX_propDescription& newProp) {
    if (!m_ok)
        return refuse(L"the well is not open");
    const auto from = names::plain(oldProp);
    const auto to = names::plain(newProp);
    if (!names::areStorable(to))
        return false;
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    const std::int64_t id = propertyRecords::find(*m_db, m_wellId, from);
    if (id == 0)
        return refuseMissing(m_db, L"the well has no property " + names::shown(from));
    if (from == to)
        return edit.commit();
    if (isPropertyExist(to))
        return refuse(L"the well has a property " + names::shown(to)
                      + L" already; another name or group is expected");
    if (!m_db->exec(sql(L"UPDATE property SET name = ",
                        quotedName(to.name),
                        L", p_group = ",
                        quotedName(to.group),
                        L" WHERE w_id = ",
                        key(m_wellId),
                        L" AND name = ",
                        quotedName(from.name),
                        L" AND p_group = ",
                        quotedName(from.group)))
        || !moveSamples(*m_db, m_wellId, from, to) || !propertyRecords::touch(*m_db, id)
        || !updateEditTime())
        return false;
    const auto well = getDescription();
    journal::add(*m_db,
                 eventKind::property,
                 eventAction::rename,
                 names::shown(well) + L": " + names::shown(from) + L" -> " + names::shown(to));
    announce::afterCommit(*m_db, [well, from, to](auto& observer, const auto& container) {
        observer.renameProperty(container, well, from, to);
    });
    return edit.commit();
}

// The samples lie in a folder of the group: moving them is what a rename does.
bool NORLEX_well::renamePropertyGroupLAS(const NORLEX_propDescription& prop,
                                         const std::wstring& newGroup) {
    const std::int64_t id = NORLEX_wellProperty::getID(m_db, m_wellId, prop);
    const auto row = id != 0 ? propertyRecords::read(*m_db, id) : std::nullopt;
    if (!row || row->type != NORLEX_dataTypeLog)
        return refuseMissing(m_db, L"the well has no log " + names::shown(prop));
    return renameProperty(prop, {prop.name, newGroup});
}

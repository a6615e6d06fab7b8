// Removing a template, and changing its name or type.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/journal.h"
#include "templates/template_news.h"
#include "templates/template_queries.h"
#include "templates/template_rows.h"

using namespace sqlText;

namespace {

// Records of both kinds are intervals.
bool isIntervalOrColumn(NORLEX_dataType type) {
    return type == NORLEX_dataTypeInterval || type == NORLEX_dataTypeColumn;
}

} // namespace

bool NORLEX_propTemplate::remove(odbc_database* db, const std::wstring& name) {
    if (!templateQueries::isOpen(db))
        return false;
    const std::wstring what = sql(L"cannot remove the template \"", name, L"\": ");
    transaction change(db);
    if (!change.isOpen())
        return false;
    const NORLEX_propTemplate removed(db, name);
    if (!removed.isOK())
        return refuse(what + L"there is none of that name");
    const std::wstring id = key(removed.getID());
    const auto properties = removed.numProps();
    if (properties != 0)
        return refuse(sql(what, L"remove its properties first, ", key(properties), L" of them"));
    if (!db->exec(sql(L"DELETE FROM field_template WHERE bt_id = ", id))
        || !db->exec(sql(L"DELETE FROM base_template WHERE bt_id = ", id)))
        return false;
    journal::add(*db, journal::templateObject, eventAction::remove, name);
    templateNews::announce(*db, name, {}, {});
    return change.commit();
}

bool NORLEX_propTemplate::rename(odbc_database* db,
                                 const std::wstring& oldName,
                                 const std::wstring& newName) {
    if (!templateQueries::isOpen(db))
        return false;
    const std::wstring name = plainName(newName);
    const std::wstring what = sql(L"cannot rename the template \"", oldName, L"\": ");
    transaction change(db);
    if (!change.isOpen())
        return false;
    const NORLEX_propTemplate renamed(db, oldName);
    if (!renamed.isOK())
        return refuse(what + L"there is none of that name");
    if (name == oldName)
        return change.commit();
    if (!templateRows::isFree(*db, name, what)
        || !db->exec(sql(
            L"UPDATE base_template SET name = ", quoted(name), L" WHERE name = ", quoted(oldName)))
        || !updateEditTime(db, renamed.getID()))
        return false;
    journal::add(*db, journal::templateObject, eventAction::rename, sql(oldName, L" -> ", name));
    // some know the template by its old name, some look for it under the new one
    templateNews::announce(*db, oldName, {}, {});
    templateNews::announce(*db, name, {}, templateNews::propertiesOf(*db, renamed.getID()));
    return change.commit();
}

// Hosts ask for this one before rename(); they take a refusal for "not supported".
bool NORLEX_propTemplate::renameTemplate(odbc_database*, const std::wstring&, const std::wstring&) {
    return false;
}

std::wstring NORLEX_propTemplate::getDataTypeString() const {
    return templateQueries::text(m_db,
                                 sql(L"SELECT type FROM base_template WHERE bt_id = ", key(m_id)));
}

bool NORLEX_propTemplate::setDataTypeString(const std::wstring& storedName) {
    const NORLEX_dataType type = getDataTypeByEnum(storedName);
    const std::wstring what = sql(L"cannot change the type of the template \"", m_name, L"\": ");
    const bool done = edit({}, true, [&] {
        if (type == NORLEX_dataTypeUnknown)
            return refuse(sql(what, L"\"", storedName, L"\" is no stored name of a data type"));
        if (type == m_type)
            return true;
        if (!templateRows::mayBeMade(*m_db, type, what))
            return false;
        const auto properties = numProps();
        if (properties != 0 && !(isIntervalOrColumn(type) && isIntervalOrColumn(m_type)))
            return refuse(sql(what,
                              key(properties),
                              L" properties have records of the type ",
                              getDataNameByEnum(m_type)));
        return m_db->exec(sql(L"UPDATE base_template SET type = ",
                              quoted(getDataTypeEnum(type)),
                              L" WHERE bt_id = ",
                              key(m_id)));
    });
    if (done)
        m_type = type;
    return done;
}

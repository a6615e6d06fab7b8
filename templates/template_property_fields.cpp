// Fields of a name in every property of a template: the statements are as few for ten thousand
// properties as for one.
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "templates/property_fields.h"
#include "templates/template_queries.h"

using namespace sqlText;

namespace propertyFields {

namespace {

std::wstring ofTemplate(std::int64_t templateId) {
    return sql(L"pr_id IN(SELECT pr_id FROM property WHERE bt_id = ", key(templateId), L")");
}

std::wstring keysOf(std::int64_t templateId, const std::wstring& name) {
    return sql(
        L"SELECT f_id FROM field WHERE name = ", quoted(name), L" AND ", ofTemplate(templateId));
}

// A dictionary is bound to the field of a property by its names. A property that another template
// has properties of the same name for keeps its binding, which serves those. There is no such table
// before the first dictionary.
bool renameBindings(odbc_database& db,
                    std::int64_t templateId,
                    const std::wstring& oldName,
                    const std::wstring& newName) {
    const std::wstring bound = sql(
        L" WHERE field = ",
        quoted(oldName),
        L" AND (p_group, prop) IN (SELECT p_group, name FROM property WHERE bt_id = ",
        key(templateId),
        L") AND (p_group, prop) NOT IN (SELECT p_group, name FROM property WHERE p_group IS NOT NULL AND bt_id <> ",
        key(templateId),
        L")");
    if (templateQueries::counter(&db, sql(L"SELECT link_id FROM dict_link", bound)) == 0)
        return true;
    return db.exec(
        sql(L"UPDATE dict_link SET field = ", quoted(newName), L", ", audit::touched(db), bound));
}

} // namespace

std::int64_t dependentOn(odbc_database& db, std::int64_t templateId, const std::wstring& name) {
    return templateQueries::counter(
        &db,
        sql(L"SELECT count(DISTINCT field.pr_id) FROM field INNER JOIN val ON val.f_id = field.f_id WHERE field.name = ",
            quoted(name),
            L" AND field.",
            ofTemplate(templateId),
            L" AND field.pr_id NOT IN (SELECT pr_id FROM field WHERE name <> ",
            quoted(name),
            L")"));
}

bool removeFromTemplate(odbc_database& db, std::int64_t templateId, const std::wstring& name) {
    const std::wstring keys = keysOf(templateId, name);
    transaction change(&db);
    return change.isOpen() && db.exec(sql(L"DELETE FROM val WHERE f_id IN (", keys, L")"))
           && db.exec(sql(L"DELETE FROM prop_link WHERE fld_id IN (", keys, L")"))
           && db.exec(sql(
               L"DELETE FROM field WHERE name = ", quoted(name), L" AND ", ofTemplate(templateId)))
           && change.commit();
}

bool renameInTemplate(odbc_database& db,
                      std::int64_t templateId,
                      const std::wstring& oldName,
                      const std::wstring& newName) {
    transaction change(&db);
    if (!change.isOpen())
        return false;
    const auto taken = templateQueries::counter(
        &db, sql(L"SELECT count(*) FROM (", keysOf(templateId, newName), L") AS own"));
    if (taken != 0)
        return refuse(sql(L"cannot rename the field \"",
                          oldName,
                          L"\": ",
                          key(taken),
                          L" properties have a field \"",
                          newName,
                          L"\" of their own; another name is expected"));
    return db.exec(sql(L"UPDATE field SET name = ",
                       quoted(newName),
                       L" WHERE name = ",
                       quoted(oldName),
                       L" AND ",
                       ofTemplate(templateId)))
           && renameBindings(db, templateId, oldName, newName) && change.commit();
}

bool setTypeInTemplate(odbc_database& db,
                       std::int64_t templateId,
                       const std::wstring& name,
                       NORLEX_fieldType type) {
    return db.exec(sql(L"UPDATE field SET type = ",
                       quoted(fieldType_getBaseEnum(type)),
                       L" WHERE name = ",
                       quoted(name),
                       L" AND ",
                       ofTemplate(templateId)));
}

} // namespace propertyFields

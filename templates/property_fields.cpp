#include "templates/property_fields.h"

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "templates/template_queries.h"

#include <algorithm>

using namespace sqlText;

namespace propertyFields {

namespace {

// Empty values of the fields of a name that are keyed above `lastKey`, one for each geometry row of
// their properties. A property's geometry rows are those that its other fields have values for.
bool addEmptyValues(odbc_database& db, const std::wstring& name, std::int64_t lastKey) {
    return db.exec(sql(
        L"INSERT INTO val(f_id, obj_id, value) SELECT DISTINCT added.f_id, val.obj_id, '' FROM field AS added INNER JOIN field AS other ON other.pr_id = added.pr_id INNER JOIN val ON val.f_id = other.f_id WHERE added.f_id > ",
        key(lastKey),
        L" AND added.name = ",
        quotedName(name),
        L" AND other.f_id <= ",
        key(lastKey)));
}

// The largest key of all: max() may answer this connection's own.
std::int64_t lastKey(odbc_database& db) {
    return templateQueries::counter(&db, L"SELECT f_id FROM field ORDER BY f_id DESC LIMIT 1");
}

} // namespace

std::vector<row> read(odbc_database& db, std::int64_t propertyId) {
    std::vector<row> found;
    const auto rows = db.query(sql(
        L"SELECT f_id, name, type FROM field WHERE pr_id = ", key(propertyId), L" ORDER BY f_id"));
    while (rows && rows->next())
        found.push_back(
            {rows->get_counter(0), rows->get_text(1), fieldType_getType(rows->get_text(2))});
    return found;
}

bool add(odbc_database& db,
         std::int64_t propertyId,
         const std::wstring& name,
         NORLEX_fieldType type) {
    return db.exec(sql(L"INSERT INTO field (name, pr_id, type, is_base) VALUES (",
                       quotedName(name),
                       L", ",
                       key(propertyId),
                       L", ",
                       quoted(fieldType_getBaseEnum(type)),
                       L", 0)"));
}

bool addAll(odbc_database& db,
            std::int64_t propertyId,
            const std::vector<NORLEX_fieldDescr>& fields) {
    transaction change(&db);
    return change.isOpen()
           && std::all_of(
               fields.begin(),
               fields.end(),
               [&](const auto& field) { return add(db, propertyId, field.name, field.type); })
           && change.commit();
}

bool remove(odbc_database& db, std::int64_t fieldId) {
    transaction change(&db);
    return change.isOpen() && db.exec(sql(L"DELETE FROM val WHERE f_id = ", key(fieldId)))
           && db.exec(sql(L"DELETE FROM field WHERE f_id = ", key(fieldId))) && change.commit();
}

bool addWithValues(odbc_database& db,
                   std::int64_t propertyId,
                   const std::wstring& name,
                   NORLEX_fieldType type) {
    transaction change(&db);
    if (!change.isOpen())
        return false;
    const auto last = lastKey(db);
    return add(db, propertyId, name, type) && addEmptyValues(db, name, last) && change.commit();
}

bool addToTemplate(odbc_database& db,
                   std::int64_t templateId,
                   const std::wstring& name,
                   NORLEX_fieldType type) {
    transaction change(&db);
    if (!change.isOpen())
        return false;
    const auto last = lastKey(db);
    return db.exec(sql(L"INSERT INTO field (name, pr_id, type, is_base) SELECT ",
                       quotedName(name),
                       L", pr_id, ",
                       quoted(fieldType_getBaseEnum(type)),
                       L", 0 FROM property WHERE bt_id = ",
                       key(templateId),
                       L" AND pr_id NOT IN (SELECT pr_id FROM field WHERE name = ",
                       quotedName(name),
                       L")"))
           && addEmptyValues(db, name, last) && change.commit();
}

} // namespace propertyFields

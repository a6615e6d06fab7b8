// Templates of a user's own: NORLEX_propTemplate::createFromType and createFromTemplate.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/journal.h"
#include "templates/template_news.h"
#include "templates/template_queries.h"
#include "templates/template_rows.h"

#include <algorithm>

using namespace sqlText;

namespace {

std::wstring cannotCreate(const std::wstring& name) {
    return sql(L"cannot create the template \"", name, L"\": ");
}

// Descriptors of fields given by two lists.
bool describe(const std::wstring& templateName,
              const std::vector<std::wstring>& names,
              const std::vector<NORLEX_fieldType>& types,
              std::vector<NORLEX_fieldDescr>& fields) {
    if (names.size() != types.size())
        return refuse(sql(cannotCreate(templateName),
                          key(static_cast<std::int64_t>(names.size())),
                          L" field names and ",
                          key(static_cast<std::int64_t>(types.size())),
                          L" field types were given; one type a name is expected"));
    for (std::size_t i = 0; i < names.size(); ++i) {
        NORLEX_fieldDescr field;
        field.name = names[i];
        field.type = types[i];
        fields.push_back(field);
    }
    return true;
}

} // namespace

bool NORLEX_propTemplate::makeTemplate(odbc_database* db,
                                       NORLEX_dataType type,
                                       const std::wstring& name,
                                       const std::vector<NORLEX_fieldDescr>& baseFields,
                                       const std::vector<NORLEX_fieldDescr>& fields,
                                       bool announce) {
    const std::wstring plain = plainName(name);
    const std::wstring what = cannotCreate(plain);
    transaction change(db);
    if (!change.isOpen() || !templateRows::isFree(*db, plain, what)
        || !templateRows::mayBeMade(*db, type, what) || !templateRows::insert(*db, plain, type))
        return false;
    NORLEX_propTemplate made(db, plain);
    const auto add = [&](const auto& field) { return made.insertField(field); };
    if (!std::all_of(baseFields.begin(), baseFields.end(), add)
        || !std::all_of(fields.begin(), fields.end(), add))
        return false;
    journal::add(*db, journal::templateObject, eventAction::create, plain);
    if (announce)
        templateNews::announce(*db, plain, {}, {});
    return change.commit();
}

bool NORLEX_propTemplate::createFromType(odbc_database* db,
                                         NORLEX_dataType type,
                                         const std::wstring& name,
                                         const std::vector<std::wstring>& fieldNames,
                                         const std::vector<NORLEX_fieldType>& fieldTypes,
                                         bool announce) {
    std::vector<NORLEX_fieldDescr> fields;
    return describe(name, fieldNames, fieldTypes, fields)
           && createFromType(db, type, name, fields, announce);
}

bool NORLEX_propTemplate::createFromType(odbc_database* db,
                                         NORLEX_dataType type,
                                         const std::wstring& name,
                                         const std::vector<NORLEX_fieldDescr>& fields,
                                         bool announce) {
    std::vector<NORLEX_fieldDescr> baseFields;
    getBaseFldListForType(type, baseFields);
    return templateQueries::isOpen(db)
           && makeTemplate(db, type, name, baseFields, fields, announce);
}

bool NORLEX_propTemplate::createFromTemplate(odbc_database* db,
                                             const std::wstring& sourceName,
                                             const std::wstring& newName,
                                             const std::vector<std::wstring>& fieldNames,
                                             const std::vector<NORLEX_fieldType>& fieldTypes,
                                             bool announce) {
    std::vector<NORLEX_fieldDescr> fields;
    return describe(newName, fieldNames, fieldTypes, fields)
           && createFromTemplate(db, sourceName, newName, fields, announce);
}

bool NORLEX_propTemplate::createFromTemplate(odbc_database* db,
                                             const std::wstring& sourceName,
                                             const std::wstring& newName,
                                             const std::vector<NORLEX_fieldDescr>& fields,
                                             bool announce) {
    if (!templateQueries::isOpen(db))
        return false;
    transaction change(db);
    if (!change.isOpen())
        return false;
    const NORLEX_propTemplate source(db, sourceName);
    if (!source.isOK())
        return refuseMissing(
            db, sql(cannotCreate(newName), L"there is no template \"", sourceName, L"\" to copy"));
    return makeTemplate(db, source.getType(), newName, source.getFieldList(), fields, announce)
           && change.commit();
}

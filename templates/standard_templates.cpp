// The templates that every container has: NORLEX_propTemplate::create and createType.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "templates/template_queries.h"
#include "templates/template_rows.h"

#include <algorithm>

using namespace sqlText;

bool NORLEX_propTemplate::create(odbc_database* db) {
    if (!templateQueries::isOpen(db))
        return false;
    if (!db->exec(L"DELETE FROM base_template") || !db->exec(L"DELETE FROM field_template"))
        return false;
    for (int type = NORLEX_dataTypeMarker; type <= NORLEX_dataTypeWorkConstruction; ++type)
        if (!createType(db, static_cast<NORLEX_dataType>(type)))
            return false;
    return true;
}

bool NORLEX_propTemplate::createType(odbc_database* db, NORLEX_dataType type) {
    if (!templateQueries::isOpen(db))
        return false;
    const std::wstring name = getDataNameByEnum(type);
    if (name.empty())
        return refuse(sql(L"there is no standard template of data type ", key(type), L": 1 to 11"));
    if (isExist(db, name))
        return refuse(sql(L"a template \"", name, L"\" exists already"));
    transaction change(db);
    if (!change.isOpen() || !templateRows::insert(*db, name, type))
        return false;
    NORLEX_propTemplate made(db, name);
    std::vector<NORLEX_fieldDescr> fields;
    getBaseFldListForType(type, fields);
    return std::all_of(fields.begin(),
                       fields.end(),
                       [&](const auto& field) { return made.insertField(field); })
           && change.commit();
}

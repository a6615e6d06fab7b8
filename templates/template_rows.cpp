#include "templates/template_rows.h"

#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "store/audit.h"
#include "templates/template_queries.h"

using namespace sqlText;

namespace templateRows {

namespace {

// The library makes properties of these kinds by itself, from the one template there is.
bool isSingle(NORLEX_dataType type) {
    return type == NORLEX_dataTypeBorder || type == NORLEX_dataTypeConstruction
           || type == NORLEX_dataTypeWorkConstruction;
}

} // namespace

bool isFree(odbc_database& db, const std::wstring& name, const std::wstring& what) {
    if (numbers::trimmed(name).empty())
        return refuse(what + L"a template needs a name");
    return templateQueries::counter(
               &db, sql(L"SELECT bt_id FROM base_template WHERE name = ", quoted(name)))
               == 0
           || refuse(what + L"there is one of that name already");
}

bool mayBeMade(odbc_database& db, NORLEX_dataType type, const std::wstring& what) {
    if (getDataTypeEnum(type).empty())
        return refuse(sql(what, L"the data type ", key(type), L" is none of 1 to 11"));
    if (!isSingle(type)
        || templateQueries::counter(
               &db,
               sql(L"SELECT bt_id FROM base_template WHERE type = ", quoted(getDataTypeEnum(type))))
               == 0)
        return true;
    return refuse(sql(what,
                      L"a container has one template of the type ",
                      getDataNameByEnum(type),
                      L", and it is there"));
}

bool insert(odbc_database& db, const std::wstring& name, NORLEX_dataType type) {
    return db.exec(sql(
        L"INSERT INTO base_template(name, description, type, UUID, create_date, update_date, create_user, update_user) VALUES (",
        quoted(name),
        L",",
        quoted(name),
        L",",
        quoted(getDataTypeEnum(type)),
        L",",
        audit::created(db),
        L")"));
}

} // namespace templateRows

// Look-ups over all templates: the static operations of NORLEX_propTemplate that change nothing.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "templates/field_rows.h"

using namespace sqlText;

namespace {

std::wstring firstText(odbc_database* db, const std::wstring& query) {
    const auto rows = db->query(query);
    return rows && rows->next() ? rows->get_text(0) : std::wstring();
}

std::vector<std::wstring> texts(odbc_database* db, const std::wstring& query) {
    std::vector<std::wstring> found;
    const auto rows = db->query(query);
    while (rows && rows->next())
        found.push_back(rows->get_text(0));
    return found;
}

} // namespace

bool NORLEX_propTemplate::isExist(odbc_database* db, const std::wstring& name) {
    const auto rows = db->query(sql(L"SELECT name FROM base_template WHERE name = ", quoted(name)));
    return rows && rows->next();
}

std::uint32_t NORLEX_propTemplate::getID(odbc_database* db, const std::wstring& name) {
    const auto rows =
        db->query(sql(L"SELECT bt_id FROM base_template WHERE name = ", quoted(name)));
    return rows && rows->next() ? static_cast<std::uint32_t>(rows->get_counter(0)) : 0;
}

std::wstring NORLEX_propTemplate::getName(odbc_database* db, std::uint32_t templateId) {
    return firstText(db, sql(L"SELECT name FROM base_template WHERE bt_id = ", key(templateId)));
}

NORLEX_dataType NORLEX_propTemplate::getType(odbc_database* db, const std::wstring& name) {
    return getDataTypeByEnum(
        firstText(db, sql(L"SELECT type FROM base_template WHERE name = ", quoted(name))));
}

NORLEX_dataType NORLEX_propTemplate::getType(odbc_database* db, std::uint32_t templateId) {
    return getDataTypeByEnum(
        firstText(db, sql(L"SELECT type FROM base_template WHERE bt_id = ", key(templateId))));
}

std::vector<std::wstring> NORLEX_propTemplate::getTemplateList(odbc_database* db) {
    return texts(db, L"SELECT name FROM base_template ORDER BY name, type");
}

std::vector<std::wstring> NORLEX_propTemplate::getTemplateListForType(odbc_database* db,
                                                                      NORLEX_dataType type) {
    return texts(db,
                 sql(L"SELECT name FROM base_template WHERE type = ",
                     quoted(getDataTypeEnum(type)),
                     L" ORDER BY name"));
}

std::vector<NORLEX_fieldDescr> NORLEX_propTemplate::getFieldList(odbc_database* db,
                                                                 const std::wstring& name) {
    return fieldRows::read(
        *db,
        sql(L"SELECT field_template.name, field_template.type, field_template.prec, field_template.short_name FROM field_template LEFT JOIN base_template ON base_template.bt_id = field_template.bt_id WHERE base_template.name = ",
            quoted(name),
            L" ORDER BY ft_id"));
}

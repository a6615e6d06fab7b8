// The properties and wells that use templates.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "templates/template_queries.h"

using namespace sqlText;

namespace {

std::vector<NORLEX_propDescription> properties(odbc_database* db, const std::wstring& query) {
    std::vector<NORLEX_propDescription> found;
    const auto rows = db != nullptr ? db->query(query) : nullptr;
    while (rows && rows->next())
        found.emplace_back(rows->get_text(0), rows->get_text(1));
    return found;
}

std::vector<NORLEX_wellDescription> wells(odbc_database* db, const std::wstring& query) {
    std::vector<NORLEX_wellDescription> found;
    const auto rows = db != nullptr ? db->query(query) : nullptr;
    while (rows && rows->next())
        found.push_back({rows->get_text(0),
                         rows->get_text(1),
                         rows->get_text(2),
                         static_cast<std::uint32_t>(rows->get_counter(3))});
    return found;
}

std::wstring ofType(NORLEX_dataType type) {
    return sql(
        L"SELECT distinct(property.name), property.p_group FROM property WHERE bt_id IN (SELECT bt_id FROM base_template WHERE type = ",
        quoted(getDataTypeEnum(type)),
        L")");
}

constexpr const wchar_t* byGroupAndName = L" ORDER BY property.p_group, property.name";

} // namespace

std::int64_t NORLEX_propTemplate::getNumWellsWithProps(odbc_database* db,
                                                       const std::wstring& name) {
    return templateQueries::counter(
        db,
        sql(L"SELECT count(w_id) FROM property LEFT JOIN base_template ON property.bt_id = base_template.bt_id WHERE base_template.name = ",
            quoted(name)));
}

std::int64_t NORLEX_propTemplate::numProps() const {
    return templateQueries::counter(
        m_db, sql(L"SELECT count(*) FROM property WHERE bt_id = ", key(m_id)));
}

std::vector<NORLEX_propDescription>
NORLEX_propTemplate::getPropertyFromTemplate(odbc_database* db, const std::wstring& name) {
    return properties(
        db,
        sql(L"SELECT distinct(property.name), property.p_group FROM property WHERE bt_id = (SELECT bt_id FROM base_template WHERE name = ",
            quoted(name),
            L")",
            byGroupAndName));
}

std::vector<NORLEX_propDescription> NORLEX_propTemplate::getPropertyFromType(odbc_database* db,
                                                                             NORLEX_dataType type) {
    return properties(db, sql(ofType(type), byGroupAndName));
}

std::vector<NORLEX_propDescription> NORLEX_propTemplate::getPropertyFromType(
    odbc_database* db, NORLEX_dataType type, const std::vector<std::uint32_t>& wellIds) {
    return properties(db,
                      sql(ofType(type), L" AND w_id IN (", keyList(wellIds), L")", byGroupAndName));
}

std::vector<NORLEX_wellDescription>
NORLEX_propTemplate::getWellsFromTemplate(odbc_database* db, const std::wstring& name) {
    return wells(
        db,
        sql(L"SELECT DISTINCT well_base.work_object, well_base.field, well_base.name, well_base.w_id FROM well_base LEFT JOIN property ON property.w_id = well_base.w_id LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE base_template.name = ",
            quoted(name),
            L" ORDER BY well_base.work_object, well_base.field, well_base.name"));
}

std::vector<NORLEX_wellDescription> NORLEX_propTemplate::getWellsFromTemplate(
    odbc_database* db, const std::wstring& name, const NORLEX_propDescription& prop) {
    // two blanks before AND are part of the text
    return wells(
        db,
        sql(L"SELECT well_base.work_object, well_base.field, well_base.name, well_base.w_id FROM well_base LEFT JOIN property ON property.w_id = well_base.w_id LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE base_template.name = ",
            quoted(name),
            L"  AND property.p_group = ",
            quotedName(prop.group),
            L" AND property.name = ",
            quotedName(prop.name),
            L" ORDER BY well_base.work_object, well_base.field, well_base.name"));
}

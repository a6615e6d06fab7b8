// The fields of templates, read: by an open template, and by a template's name.
#include "NORLEX_propTemplate.h"
#include "platform/sql_text.h"
#include "platform/string_table.h"
#include "templates/field_rows.h"
#include "templates/template_queries.h"

#include <algorithm>

using namespace sqlText;

namespace {

enum : unsigned int { depth = 1901, top = 1902, bottom = 1903 };

std::vector<std::wstring> namesOf(const std::vector<NORLEX_fieldDescr>& fields) {
    std::vector<std::wstring> names;
    names.reserve(fields.size());
    for (const auto& field : fields)
        names.push_back(field.name);
    return names;
}

std::vector<std::wstring> depthNames(NORLEX_dataType type) {
    switch (type) {
    case NORLEX_dataTypeMarker:
    case NORLEX_dataTypeLog:
    case NORLEX_dataTypeBorder:
    case NORLEX_dataTypeSerial:
        return {stringTable::text(depth)};
    case NORLEX_dataTypeInterval:
    case NORLEX_dataTypeColumn:
    case NORLEX_dataTypeRastr:
        return {stringTable::text(top), stringTable::text(bottom)};
    default:
        return {};
    }
}

} // namespace

std::wstring NORLEX_propTemplate::fieldText(const wchar_t* select,
                                            const std::wstring& field) const {
    return templateQueries::text(m_db, sql(select, quoted(field), L" AND bt_id = ", key(m_id)));
}

bool NORLEX_propTemplate::isFieldExist(const std::wstring& field) const {
    return !fieldText(L"SELECT name FROM field_template WHERE name = ", field).empty();
}

std::vector<NORLEX_fieldDescr> NORLEX_propTemplate::getFieldList() const {
    return fieldRows::read(
        m_db,
        sql(L"SELECT name, type, prec, short_name FROM field_template WHERE bt_id = ",
            key(m_id),
            L" ORDER BY ft_id"));
}

int NORLEX_propTemplate::getFieldCount() const {
    return static_cast<int>(templateQueries::counter(
        m_db, sql(L"SELECT count(name) FROM field_template WHERE bt_id = ", key(m_id))));
}

NORLEX_fieldType NORLEX_propTemplate::getFieldType(const std::wstring& field) const {
    return fieldType_getType(fieldText(L"SELECT type FROM field_template WHERE name =", field));
}

int NORLEX_propTemplate::getFieldMetaType(const std::wstring& field) const {
    return isFieldExist(field) ? fieldType_getDSType(getFieldType(field)) : 0;
}

int NORLEX_propTemplate::getFieldPrecision(const std::wstring& field) const {
    return static_cast<int>(
        templateQueries::counter(m_db,
                                 sql(L"SELECT prec FROM field_template WHERE name =",
                                     quoted(field),
                                     L" AND bt_id = ",
                                     key(m_id))));
}

std::wstring NORLEX_propTemplate::getFieldShortName(const std::wstring& field) const {
    return fieldText(L"SELECT short_name FROM field_template WHERE name =", field);
}

NORLEX_fieldType NORLEX_propTemplate::getFieldType(odbc_database* db,
                                                   const std::wstring& name,
                                                   const std::wstring& field) {
    return NORLEX_propTemplate(db, name).getFieldType(field);
}

int NORLEX_propTemplate::getFieldPrecision(odbc_database* db,
                                           const std::wstring& name,
                                           const std::wstring& field) {
    return NORLEX_propTemplate(db, name).getFieldPrecision(field);
}

std::wstring NORLEX_propTemplate::getFieldShortName(odbc_database* db,
                                                    const std::wstring& name,
                                                    const std::wstring& field) {
    return NORLEX_propTemplate(db, name).getFieldShortName(field);
}

std::vector<NORLEX_fieldDescr> NORLEX_propTemplate::getFieldList(odbc_database* db,
                                                                 const std::wstring& name) {
    return fieldRows::read(
        db,
        sql(L"SELECT field_template.name, field_template.type, field_template.prec, field_template.short_name FROM field_template LEFT JOIN base_template ON base_template.bt_id = field_template.bt_id WHERE base_template.name = ",
            quoted(name),
            L" ORDER BY ft_id"));
}

void NORLEX_propTemplate::getFieldList(odbc_database* db,
                                       const std::wstring& name,
                                       std::vector<std::wstring>& names) {
    names = namesOf(getFieldList(db, name));
}

void NORLEX_propTemplate::getFieldList(odbc_database* db,
                                       const std::wstring& name,
                                       NORLEX_fieldType type,
                                       std::vector<std::wstring>& names) {
    auto fields = getFieldList(db, name);
    std::erase_if(fields, [type](const auto& field) { return field.type != type; });
    names = namesOf(fields);
}

std::vector<std::wstring> NORLEX_propTemplate::getNumericFieldList(odbc_database* db,
                                                                   const std::wstring& name) {
    return templateQueries::texts(
        db,
        sql(L"SELECT field_template.name FROM field_template LEFT JOIN base_template ON base_template.bt_id = field_template.bt_id WHERE base_template.name = ",
            quoted(name),
            L" AND field_template.type = 'NORLEX_fieldTypeNumeric' ORDER BY ft_id"));
}

std::vector<std::wstring>
NORLEX_propTemplate::getNumericFieldListWithDepth(odbc_database* db, const std::wstring& name) {
    auto names = depthNames(getType(db, name));
    const auto fields = getNumericFieldList(db, name);
    names.insert(names.end(), fields.begin(), fields.end());
    return names;
}

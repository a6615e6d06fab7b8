// Changes of a template's fields: NORLEX_propTemplate::addField and its like.
#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/journal.h"
#include "templates/field_rows.h"
#include "templates/property_fields.h"
#include "templates/template_news.h"
#include "templates/template_queries.h"

using namespace sqlText;

namespace {

constexpr std::size_t longestShortName = 10;
constexpr int mostDecimals = 15; // a double has no more

bool isStorableType(NORLEX_fieldType type, const std::wstring& what) {
    return fieldType_getType(fieldType_getBaseEnum(type)) != NORLEX_fieldTypeUnknown
           || refuse(sql(what, L"the type ", key(type), L" is none of 1 to 6"));
}

bool isStorableShortName(const std::wstring& shortName, const std::wstring& what) {
    return shortName.size() <= longestShortName
           || refuse(sql(what, L"the short name ", shortName, L" has more than 10 characters"));
}

bool isStorableName(const std::wstring& name, const std::wstring& what) {
    return !numbers::trimmed(name).empty() || refuse(what + L"a field needs a name");
}

// "template: field", or "template: old name -> new name".
std::wstring journalLine(const std::wstring& name, const std::vector<std::wstring>& fields) {
    std::wstring line = name;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i == 0 ? L": " : L" -> ") + fields[i];
    return line;
}

} // namespace

bool NORLEX_propTemplate::edit(const std::vector<std::wstring>& fields,
                               bool announce,
                               const std::function<bool()>& change) {
    if (!templateQueries::isOpen(m_db))
        return false;
    if (!m_ok)
        return refuse(L"there is no template \"" + m_name + L"\"");
    transaction edited(m_db);
    if (!edited.isOpen() || !change())
        return false;
    journal::add(*m_db, journal::templateObject, eventAction::update, journalLine(m_name, fields));
    if (announce)
        templateNews::announce(*m_db, m_name, fields, templateNews::propertiesOf(*m_db, m_id));
    return updateEditTime(m_db, m_id) && edited.commit();
}

bool NORLEX_propTemplate::hasField(const std::wstring& field, bool wanted) {
    if (isFieldExist(field) == wanted)
        return true;
    return refuse(sql(L"the template \"",
                      m_name,
                      wanted ? L"\" has no field \"" : L"\" has a field \"",
                      field,
                      wanted ? L"\"" : L"\" already"));
}

bool NORLEX_propTemplate::addField(const std::wstring& name, NORLEX_fieldType type) {
    NORLEX_fieldDescr field;
    field.name = name;
    field.type = type;
    return addField(field, false);
}

bool NORLEX_propTemplate::addField(const NORLEX_fieldDescr& field, bool announce) {
    return edit({plainName(field.name)}, announce, [&] { return insertField(field); });
}

// The test of editability asks for a template that bears the field's name, so that only a field
// named like a template of a kind not editable is refused by it.
bool NORLEX_propTemplate::insertField(const NORLEX_fieldDescr& given) {
    NORLEX_fieldDescr field = given;
    field.name = plainName(given.name);
    field.short_name = plainName(given.short_name);
    const std::wstring what =
        sql(L"cannot add the field \"", field.name, L"\" to the template \"", m_name, L"\": ");
    if (!isStorableName(field.name, what) || !isStorableShortName(field.short_name, what)
        || !isStorableType(field.type, what))
        return false;
    if (!isEditable(m_db, field.name))
        return refuse(what + L"a template of that name exists whose kind cannot be edited");
    return hasField(field.name, false)
           && propertyFields::addToTemplate(*m_db, m_id, field.name, field.type)
           && fieldRows::insert(*m_db, m_id, field);
}

bool NORLEX_propTemplate::deleteField(const std::wstring& field) {
    return edit({field}, true, [&] {
        if (!hasField(field, true))
            return false;
        const auto lost = propertyFields::dependentOn(*m_db, m_id, field);
        if (lost != 0)
            return refuse(sql(L"cannot delete the field \"",
                              field,
                              L"\" of the template \"",
                              m_name,
                              L"\": ",
                              key(lost),
                              L" properties with records have no other field; add one first"));
        return propertyFields::removeFromTemplate(*m_db, m_id, field)
               && m_db->exec(sql(L"DELETE FROM field_template WHERE name = ",
                                 quoted(field),
                                 L" AND bt_id = ",
                                 key(m_id)));
    });
}

bool NORLEX_propTemplate::renameField(const std::wstring& oldName, const std::wstring& newName) {
    const std::wstring name = plainName(newName);
    const std::wstring what =
        sql(L"cannot rename the field \"", oldName, L"\" of the template \"", m_name, L"\": ");
    if (name == oldName && isFieldExist(name))
        return true;
    return edit({oldName, name}, true, [&] {
        if (!isStorableName(name, what) || !hasField(oldName, true))
            return false;
        return hasField(name, false) && propertyFields::renameInTemplate(*m_db, m_id, oldName, name)
               && m_db->exec(sql(L"UPDATE field_template SET name = ",
                                 quoted(name),
                                 L" WHERE name = ",
                                 quoted(oldName),
                                 L" AND bt_id = ",
                                 key(m_id)));
    });
}

bool NORLEX_propTemplate::changeFieldType(const std::wstring& field, NORLEX_fieldType type) {
    const std::wstring stored = quoted(fieldType_getBaseEnum(type));
    const std::wstring ofField = sql(L" WHERE name = ", quoted(field), L" AND bt_id = ", key(m_id));
    const std::wstring what =
        sql(L"cannot change the field \"", field, L"\" of the template \"", m_name, L"\": ");
    return edit({field}, true, [&] {
        return isStorableType(type, what) && hasField(field, true)
               && propertyFields::setTypeInTemplate(*m_db, m_id, field, type)
               && m_db->exec(sql(L"UPDATE field_template SET type = ", stored, ofField))
               && (type != NORLEX_fieldTypeNumeric
                   || m_db->exec(sql(L"UPDATE field_template SET prec = '2'",
                                     ofField,
                                     L" AND (prec IS NULL OR prec = '')")));
    });
}

bool NORLEX_propTemplate::setFieldPrecision(const std::wstring& field, int decimals) {
    return edit({field}, true, [&] {
        if (decimals < 0 || decimals > mostDecimals)
            return refuse(sql(L"the field \"",
                              field,
                              L"\" cannot have ",
                              key(decimals),
                              L" decimals: 0 to 15 are possible"));
        return hasField(field, true)
               && m_db->exec(sql(L"UPDATE field_template SET prec = '",
                                 key(decimals),
                                 L"' WHERE name =",
                                 quoted(field),
                                 L" AND bt_id = ",
                                 key(m_id)));
    });
}

bool NORLEX_propTemplate::setFieldShortName(const std::wstring& field,
                                            const std::wstring& shortName) {
    const std::wstring name = plainName(shortName);
    return edit({field}, true, [&] {
        return isStorableShortName(name, L"cannot change the field \"" + field + L"\": ")
               && hasField(field, true)
               && m_db->exec(sql(L"UPDATE field_template SET short_name = ",
                                 quoted(name),
                                 L" WHERE name = ",
                                 quoted(field),
                                 L" AND bt_id = ",
                                 key(m_id)));
    });
}

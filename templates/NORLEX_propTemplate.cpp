#include "NORLEX_propTemplate.h"

#include "globalEventObserver.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "store/journal.h"
#include "templates/field_rows.h"
#include "templates/property_fields.h"

using namespace sqlText;

namespace {

constexpr std::size_t longestShortName = 10;

// Whether the bit of `type` is set in a mask over the values 0 … 31.
constexpr bool isOneOf(NORLEX_dataType type, unsigned int mask) {
    return type >= 0 && type < 32 && ((mask >> static_cast<unsigned int>(type)) & 1U) != 0;
}

std::vector<NORLEX_propDescription> propertiesOf(odbc_database* db, std::uint32_t templateId) {
    std::vector<NORLEX_propDescription> found;
    const auto rows = db->query(
        sql(L"SELECT distinct(property.name), property.p_group FROM property WHERE bt_id = ",
            key(templateId),
            L" ORDER BY property.p_group, property.name"));
    while (rows && rows->next())
        found.emplace_back(rows->get_text(0), rows->get_text(1));
    return found;
}

void announceField(odbc_database* db,
                   const std::wstring& templateName,
                   const std::wstring& field,
                   const std::vector<NORLEX_propDescription>& properties) {
    db->after_commit([path = db->get_identity(), templateName, field, properties] {
        auto& observer = globalEventObserver::Instance();
        observer.updatePropTemplateField(path, templateName, field);
        for (const auto& property : properties)
            observer.updateDataAll(path, property);
    });
}

} // namespace

NORLEX_propTemplate::NORLEX_propTemplate(odbc_database* db, const std::wstring& name)
    : m_db(db), m_name(name) {
    const auto rows = db->query(
        sql(L"SELECT description, bt_id, type FROM base_template WHERE name =", quoted(name)));
    if (!rows || !rows->next())
        return;
    m_description = rows->get_text(0);
    m_id = static_cast<std::uint32_t>(rows->get_counter(1));
    m_type = getDataTypeByEnum(rows->get_text(2));
    m_ok = true;
}

bool NORLEX_propTemplate::isCreatable(NORLEX_dataType type) {
    return isOneOf(type, 0b00'0000'1110); // 1 to 3
}

bool NORLEX_propTemplate::isImportable(NORLEX_dataType type) {
    return isOneOf(type, 0b10'0111'1110); // 1 to 6 and 9
}

bool NORLEX_propTemplate::isGroupLoad(NORLEX_dataType type) {
    return isOneOf(type, 606); // 1 to 4, 6 and 9
}

bool NORLEX_propTemplate::isDataGUIEditable(NORLEX_dataType type) {
    return isOneOf(type, 0b00'0101'1110); // 1 to 4 and 6
}

bool NORLEX_propTemplate::isEditable(odbc_database* db, const std::wstring& templateName) {
    return !isOneOf(getType(db, templateName), 0b11'1111'0000); // 4 to 9
}

bool NORLEX_propTemplate::updateEditTime(odbc_database* db, std::uint32_t templateId) {
    const std::wstring stamp =
        sql(L" SET ", audit::touched(*db), L" WHERE bt_id = ", key(templateId));
    transaction change(db);
    return change.isOpen() && db->exec(sql(L"UPDATE base_template", stamp))
           && db->exec(sql(L"UPDATE property", stamp)) && change.commit();
}

bool NORLEX_propTemplate::isOK() const {
    return m_ok;
}

bool NORLEX_propTemplate::isExist() const {
    return m_ok && isExist(m_db, m_name);
}

const std::wstring& NORLEX_propTemplate::getName() const {
    return m_name;
}

const std::wstring& NORLEX_propTemplate::getDescription() const {
    return m_description;
}

NORLEX_dataType NORLEX_propTemplate::getType() const {
    return m_type;
}

std::uint32_t NORLEX_propTemplate::getID() const {
    return m_id;
}

bool NORLEX_propTemplate::addField(const std::wstring& name, NORLEX_fieldType type) {
    NORLEX_fieldDescr field;
    field.name = name;
    field.type = type;
    return addField(field, false);
}

bool NORLEX_propTemplate::addField(const NORLEX_fieldDescr& field, bool announce) {
    transaction change(m_db);
    if (!change.isOpen() || !insertField(field))
        return false;
    const std::wstring name = plainName(field.name);
    journal::add(*m_db, journal::templateObject, eventAction::update, m_name + L": " + name);
    if (announce)
        announceField(m_db, m_name, name, propertiesOf(m_db, m_id));
    return updateEditTime(m_db, m_id) && change.commit();
}

// The test of editability asks for a template that bears the field's name, so that only a field
// named like a template of a kind not editable is refused by it.
bool NORLEX_propTemplate::insertField(const NORLEX_fieldDescr& given) {
    NORLEX_fieldDescr field = given;
    field.name = plainName(given.name);
    field.short_name = plainName(given.short_name);
    const std::wstring what =
        sql(L"cannot add the field \"", field.name, L"\" to the template \"", m_name, L"\": ");
    if (!m_ok)
        return refuse(what + L"there is no such template");
    if (field.name.empty())
        return refuse(what + L"a field needs a name");
    if (field.short_name.size() > longestShortName)
        return refuse(
            sql(what, L"its short name ", field.short_name, L" has more than 10 characters"));
    if (fieldType_getType(fieldType_getBaseEnum(field.type)) == NORLEX_fieldTypeUnknown)
        return refuse(sql(what, L"its type ", key(field.type), L" is none of 1 to 6"));
    if (!isEditable(m_db, field.name))
        return refuse(what + L"a template of that name exists whose kind cannot be edited");
    if (isFieldExist(field.name))
        return refuse(what + L"it has one of that name already");
    return propertyFields::addToTemplate(*m_db, m_id, field.name, field.type)
           && fieldRows::insert(*m_db, m_id, field);
}

bool NORLEX_propTemplate::isFieldExist(const std::wstring& field) const {
    const auto rows = m_db->query(sql(L"SELECT name FROM field_template WHERE name = ",
                                      quoted(field),
                                      L" AND bt_id = ",
                                      key(m_id)));
    return rows && rows->next();
}

std::vector<NORLEX_fieldDescr> NORLEX_propTemplate::getFieldList() const {
    return fieldRows::read(
        *m_db,
        sql(L"SELECT name, type, prec, short_name FROM field_template WHERE bt_id = ",
            key(m_id),
            L" ORDER BY ft_id"));
}

int NORLEX_propTemplate::getFieldCount() const {
    const auto rows =
        m_db->query(sql(L"SELECT count(name) FROM field_template WHERE bt_id = ", key(m_id)));
    return rows && rows->next() ? rows->get_int(0) : 0;
}

NORLEX_fieldType NORLEX_propTemplate::getFieldType(const std::wstring& field) const {
    const auto rows = m_db->query(sql(L"SELECT type FROM field_template WHERE name =",
                                      quoted(field),
                                      L" AND bt_id = ",
                                      key(m_id)));
    return rows && rows->next() ? fieldType_getType(rows->get_text(0)) : NORLEX_fieldTypeUnknown;
}

int NORLEX_propTemplate::getFieldPrecision(const std::wstring& field) const {
    const auto rows = m_db->query(sql(L"SELECT prec FROM field_template WHERE name =",
                                      quoted(field),
                                      L" AND bt_id = ",
                                      key(m_id)));
    return rows && rows->next() ? rows->get_int(0) : 0;
}

std::wstring NORLEX_propTemplate::getFieldShortName(const std::wstring& field) const {
    const auto rows = m_db->query(sql(L"SELECT short_name FROM field_template WHERE name =",
                                      quoted(field),
                                      L" AND bt_id = ",
                                      key(m_id)));
    return rows && rows->next() ? rows->get_text(0) : std::wstring();
}

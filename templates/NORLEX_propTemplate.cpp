#include "NORLEX_propTemplate.h"

#include "odbc_database.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/audit.h"
#include "templates/template_queries.h"

using namespace sqlText;

namespace {

// Whether the bit of `type` is set in a mask over the values 0 … 31.
constexpr bool isOneOf(NORLEX_dataType type, unsigned int mask) {
    return type >= 0 && type < 32 && ((mask >> static_cast<unsigned int>(type)) & 1U) != 0;
}

} // namespace

NORLEX_propTemplate::NORLEX_propTemplate(odbc_database* db, const std::wstring& name)
    : m_db(db), m_name(name) {
    if (!templateQueries::isOpen(db))
        return;
    const auto rows = db->query(
        sql(L"SELECT description, bt_id, type FROM base_template WHERE name =", quoted(name)));
    if (!rows || !rows->next()) {
        refuseMissing(db, sql(L"there is no template \"", name, L"\""));
        return;
    }
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
    if (!templateQueries::isOpen(db))
        return false;
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

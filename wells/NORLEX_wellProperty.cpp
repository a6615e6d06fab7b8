#include "NORLEX_wellProperty.h"

#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/journal.h"
#include "templates/property_fields.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/query.h"
#include "wells/well_records.h"

#include <algorithm>

using namespace sqlText;

namespace {

std::vector<NORLEX_propField> readFields(odbc_database& db, std::int64_t propertyId) {
    std::vector<NORLEX_propField> out;
    for (auto& field : propertyFields::read(db, propertyId))
        out.push_back({field.fieldId, std::move(field.name), field.type});
    return out;
}

} // namespace

NORLEX_wellProperty::NORLEX_wellProperty(odbc_database* db,
                                         std::int64_t propertyId,
                                         NORLEX_inclinometry* incl,
                                         NORLEX_wellVDM* vdm)
    : m_db(db), m_incl(incl), m_vdm(vdm) {
    if (!query::isOpen(db))
        return;
    auto row = propertyRecords::read(*db, propertyId);
    if (!row)
        return;
    m_id = row->id;
    m_wellId = row->wellId;
    m_descr = std::move(row->description);
    m_comment = std::move(row->comment);
    m_templateName = std::move(row->templateName);
    m_type = row->type;
    m_fields = readFields(*db, m_id);
    m_ok = true;
}

bool NORLEX_wellProperty::create(odbc_database* db,
                                 std::uint32_t wellId,
                                 const std::wstring& templateName,
                                 const NORLEX_propDescription& given) {
    const auto prop = names::plain(given);
    if (!query::isOpen(db) || !names::areStorable(prop))
        return false;
    const auto well = wellRecords::read(*db, wellId);
    if (!well)
        return false;
    const NORLEX_propTemplate source(db, templateName);
    if (!source.isOK())
        return refuse(L"there is no property template " + templateName);
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    if (isExist(db, wellId, prop))
        return refuse(L"the well " + names::shown(*well) + L" has a property " + names::shown(prop)
                      + L" already; another name or group is expected");
    if (!propertyRecords::insert(*db, wellId, source.getID(), prop))
        return false;
    const std::int64_t id = propertyRecords::find(*db, wellId, prop);
    if (id == 0 || !propertyFields::addAll(*db, id, source.getFieldList())
        || !wellRecords::touch(*db, wellId))
        return false;
    journal::add(*db,
                 eventKind::property,
                 eventAction::create,
                 names::shown(*well) + L": " + names::shown(prop));
    announce::afterCommit(*db, [well = *well, prop](auto& observer, const auto& container) {
        observer.createProperty(container, well, prop);
    });
    return edit.commit();
}

bool NORLEX_wellProperty::create(odbc_database* db,
                                 std::uint32_t wellId,
                                 NORLEX_dataType type,
                                 const NORLEX_propDescription& prop) {
    if (!query::isOpen(db))
        return false;
    const std::wstring standard = propertyRecords::standardTemplate(*db, type);
    if (standard.empty())
        return refuse(L"there is no property template of type " + std::to_wstring(type)
                      + L"; name a template instead");
    return create(db, wellId, standard, prop);
}

bool NORLEX_wellProperty::isOK() const {
    return m_ok;
}
std::int64_t NORLEX_wellProperty::getID() const {
    return m_id;
}
std::uint32_t NORLEX_wellProperty::getWellID() const {
    return m_wellId;
}
const std::wstring& NORLEX_wellProperty::getName() const {
    return m_descr.name;
}
const std::wstring& NORLEX_wellProperty::getGroup() const {
    return m_descr.group;
}
const std::wstring& NORLEX_wellProperty::getComment() const {
    return m_comment;
}
NORLEX_dataType NORLEX_wellProperty::getType() const {
    return m_type;
}
const std::wstring& NORLEX_wellProperty::getTemplateName() const {
    return m_templateName;
}
const std::vector<NORLEX_propField>& NORLEX_wellProperty::getFields() const {
    return m_fields;
}

void NORLEX_wellProperty::announceData() const {
    const auto well = wellRecords::read(*m_db, m_wellId).value_or(NORLEX_wellDescription{});
    announce::afterCommit(*m_db, [well, prop = m_descr](auto& observer, const auto& container) {
        observer.updateDataProperty(0, container, well, prop);
    });
}

bool NORLEX_wellProperty::createField(const std::wstring& name,
                                      NORLEX_fieldType type,
                                      bool announce) {
    const std::wstring plain = plainName(name);
    if (!m_ok || plain.empty())
        return refuse(L"a field needs an open property and a name that is not empty");
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    m_fields = readFields(*m_db, m_id);
    if (std::any_of(
            m_fields.begin(), m_fields.end(), [&](const auto& f) { return f.name == plain; }))
        return refuse(L"the property " + names::shown(m_descr) + L" has a field " + plain
                      + L" already; another name is expected");
    if (!propertyFields::addWithValues(*m_db, m_id, plain, type)
        || !propertyRecords::touch(*m_db, m_id))
        return false;
    if (announce)
        announceData();
    const bool done = edit.commit();
    m_fields = readFields(*m_db, m_id);
    return done;
}

bool NORLEX_wellProperty::removeField(const std::wstring& name) {
    const std::wstring plain = plainName(name);
    const auto field = std::find_if(
        m_fields.begin(), m_fields.end(), [&](const auto& f) { return f.name == plain; });
    if (!m_ok || field == m_fields.end())
        return refuse(L"the property " + names::shown(m_descr) + L" has no field " + plain);
    transaction edit(m_db);
    if (!edit.isOpen() || !propertyFields::remove(*m_db, field->fieldId)
        || !propertyRecords::touch(*m_db, m_id) || !edit.commit())
        return false;
    m_fields.erase(field);
    return true;
}

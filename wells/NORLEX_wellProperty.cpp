#include "NORLEX_wellProperty.h"

#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "store/journal.h"
#include "store/well_path.h"
#include "templates/property_fields.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_state.h"
#include "wells/query.h"
#include "wells/sample_file.h"
#include "wells/well_records.h"

#include <algorithm>
#include <span>

using namespace sqlText;

// A log has a sample file from the beginning, so that a missing one is always a loss.
static bool writeNoSamples(odbc_database& db,
                           const NORLEX_wellDescription& well,
                           const NORLEX_propDescription& log) {
    return db.files().write(samplePathOf(NORLEX_getWellPath(&db, well), log), [](std::FILE* file) {
        return sampleFile::write(file, std::span<const NORLEX_logSample>());
    });
}

NORLEX_wellProperty::NORLEX_wellProperty(odbc_database* db,
                                         std::int64_t propertyId,
                                         NORLEX_inclinometry* incl,
                                         NORLEX_wellVDM* vdm)
    : m_db(db), m_incl(incl), m_vdm(vdm), m_state(std::make_unique<state>()) {
    m_state->id = propertyId;
    if (!query::isOpen(db) || !readRow())
        return;
    m_state->watch.emplace(*db, m_state->wellId, [this](const eventMsgDescription& message) {
        onGlobalUpdate(message);
    });
}

NORLEX_wellProperty::~NORLEX_wellProperty() = default;

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
        return refuseMissing(db, L"there is no property template " + templateName);
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
        || (source.getType() == NORLEX_dataTypeLog && !writeNoSamples(*db, *well, prop))
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
        return refuseMissing(db,
                             L"there is no property template of type " + std::to_wstring(type)
                                 + L"; name a template instead");
    return create(db, wellId, standard, prop);
}

bool NORLEX_wellProperty::isOK() const {
    refresh();
    return m_state->ok;
}
std::int64_t NORLEX_wellProperty::getID() const {
    return m_state->ok ? m_state->id : 0;
}
std::uint32_t NORLEX_wellProperty::getWellID() const {
    return m_state->wellId;
}
const std::wstring& NORLEX_wellProperty::getName() const {
    refresh();
    return m_state->descr.name;
}
const std::wstring& NORLEX_wellProperty::getGroup() const {
    refresh();
    return m_state->descr.group;
}
const std::wstring& NORLEX_wellProperty::getComment() const {
    refresh();
    return m_state->comment;
}
NORLEX_dataType NORLEX_wellProperty::getType() const {
    return m_state->type;
}
const std::wstring& NORLEX_wellProperty::getTemplateName() const {
    refresh();
    return m_state->templateName;
}
const std::vector<NORLEX_propField>& NORLEX_wellProperty::getFields() const {
    refresh();
    return m_state->fields;
}

bool NORLEX_wellProperty::createField(const std::wstring& name,
                                      NORLEX_fieldType type,
                                      bool announce) {
    refresh();
    const std::wstring plain = plainName(name);
    if (!m_state->ok || plain.empty())
        return refuse(L"a field needs an open property and a name that is not empty");
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    if (!readRow())
        return false;
    if (std::any_of(m_state->fields.begin(), m_state->fields.end(), [&](const auto& f) {
            return f.name == plain;
        }))
        return refuse(L"the property " + names::shown(m_state->descr) + L" has a field " + plain
                      + L" already; another name is expected");
    if (!propertyFields::addWithValues(*m_db, m_state->id, plain, type)
        || !propertyRecords::touch(*m_db, m_state->id))
        return false;
    if (announce)
        announceData();
    const bool done = edit.commit();
    m_state->isStale = true;
    return done;
}

bool NORLEX_wellProperty::removeField(const std::wstring& name) {
    refresh();
    const std::wstring plain = plainName(name);
    const auto field = std::find_if(m_state->fields.begin(),
                                    m_state->fields.end(),
                                    [&](const auto& f) { return f.name == plain; });
    if (!m_state->ok || field == m_state->fields.end())
        return refuse(L"the property " + names::shown(m_state->descr) + L" has no field " + plain);
    const std::int64_t fieldId = field->fieldId;
    if (m_state->fields.size() == 1 && !getRecords().empty())
        return refuse(L"the field " + plain + L" is the only one of " + names::shown(m_state->descr)
                      + L", and its records are found by their values; another field is expected");
    transaction edit(m_db);
    if (!edit.isOpen() || !propertyFields::remove(*m_db, fieldId)
        || !propertyRecords::touch(*m_db, m_state->id))
        return false;
    announceData();
    m_state->isStale = true;
    return edit.commit();
}

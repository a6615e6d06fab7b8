// How an open property keeps up with what others change.
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "templates/property_fields.h"
#include "wells/announce.h"
#include "wells/property_records.h"
#include "wells/property_state.h"
#include "wells/well_records.h"

bool NORLEX_wellProperty::readRow() const {
    auto row = propertyRecords::read(*m_db, m_state->id);
    m_state->ok = row.has_value();
    if (!row)
        return false;
    m_state->wellId = row->wellId;
    m_state->descr = std::move(row->description);
    m_state->comment = std::move(row->comment);
    m_state->templateName = std::move(row->templateName);
    m_state->type = row->type;
    m_state->fields.clear();
    m_state->dictionaries.clear();
    for (auto& field : propertyFields::read(*m_db, m_state->id))
        m_state->fields.push_back({field.fieldId, std::move(field.name), field.type});
    return true;
}

// Samples that were edited in memory stay until they are written; so do records made in memory.
void NORLEX_wellProperty::refresh() const {
    if (!m_state->watch || (!m_state->watch->takeMissed() && !m_state->isStale))
        return;
    m_state->isStale = false;
    m_state->records.reset();
    if (!m_state->samplesEdited) {
        m_state->samples = {};
        m_state->samplesLoaded = false;
    }
    readRow();
}

void NORLEX_wellProperty::onGlobalUpdate(const eventMsgDescription& message) {
    auto& self = *m_state;
    const bool isOwn = message.property == self.descr;
    switch (message.kind) {
    case eventKind::property:
    case eventKind::allWellsData:
    case eventKind::allWellsProperty:
        self.isStale = self.isStale || isOwn;
        break;
    case eventKind::templateField:
        self.isStale = self.isStale || message.params[0] == self.templateName;
        break;
    case eventKind::correlationBorder:
        self.isStale = self.isStale || self.type == NORLEX_dataTypeBorder;
        break;
    case eventKind::dictionary: // of a binding, the only one that names a property
        if (isOwn)
            self.dictionaries.clear();
        break;
    case eventKind::well: // its survey or its altitude, or it is gone
        self.isStale = self.isStale || message.action != eventAction::create;
        break;
    case eventKind::container:
        self.isStale = true;
        break;
    default:
        break;
    }
}

void NORLEX_wellProperty::announceData() const {
    const auto well = wellRecords::read(*m_db, m_state->wellId).value_or(NORLEX_wellDescription{});
    announce::afterCommit(*m_db,
                          [well, prop = m_state->descr, scope = m_state->watch->scope()](
                              auto& observer, const auto& container) {
                              observer.updateDataProperty(scope, container, well, prop);
                          });
}

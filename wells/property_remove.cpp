// Deleting one property with everything that belongs to it.
#include "NORLEX_propTemplate.h"
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/journal.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_removal.h"
#include "wells/property_state.h"
#include "wells/query.h"
#include "wells/well_records.h"

using namespace sqlText;

namespace {

propertyRemoval::found
findRow(odbc_database& db, std::uint32_t wellId, const NORLEX_propDescription& prop) {
    propertyRemoval::found out;
    std::uint32_t templateId = 0;
    {
        const auto row = db.query(
            sql(L"SELECT cast(pr_id as text), bt_id, description FROM property WHERE name = ",
                quotedName(prop.name),
                L" AND p_group = ",
                quotedName(prop.group),
                L" AND w_id = ",
                key(wellId)));
        if (!row || !row->next())
            return out;
        out.id = row->get_counter(0);
        templateId = static_cast<std::uint32_t>(row->get_counter(1));
    }
    out.wellId = wellId;
    out.type = NORLEX_propTemplate::getType(&db, templateId);
    return out;
}

} // namespace

bool NORLEX_wellProperty::removeSilent(odbc_database* db,
                                       std::uint32_t wellId,
                                       const NORLEX_propDescription& given) {
    if (!query::isOpen(db))
        return false;
    const auto prop = names::plain(given);
    transaction edit(db);
    if (!edit.isOpen())
        return false;
    const auto property = findRow(*db, wellId, prop);
    if (property.id == 0)
        return refuseMissing(db,
                             L"the well with the key " + key(wellId) + L" has no property "
                                 + names::shown(prop));
    return propertyRemoval::remove(*db, prop, {property}) && wellRecords::touch(*db, wellId)
           && edit.commit();
}

bool NORLEX_wellProperty::remove() {
    if (!isOK())
        return refuse(L"the property is not open");
    const auto well = wellRecords::read(*m_db, m_state->wellId).value_or(NORLEX_wellDescription{});
    transaction edit(m_db);
    const auto prop = getDescr(m_db, m_state->id); // it may have been renamed since it was opened
    if (!edit.isOpen() || !removeSilent(m_db, m_state->wellId, prop))
        return false;
    journal::add(*m_db,
                 eventKind::property,
                 eventAction::remove,
                 names::shown(well) + L": " + names::shown(prop));
    announce::afterCommit(*m_db, [well, prop](auto& observer, const auto& container) {
        observer.deleteProperty(container, well, prop);
    });
    if (!edit.commit())
        return false;
    m_state->ok = false;
    return true;
}

#include "wells/log_records.h"

#include "NORLEX_propTemplate.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "platform/transaction_files.h"
#include "store/journal.h"
#include "store/well_path.h"
#include "templates/property_fields.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/query.h"
#include "wells/well_records.h"

#include <algorithm>

using namespace sqlText;

namespace logRecords {

maker::maker(odbc_database& db, std::uint32_t wellId, bool isNewWell) : m_db(db) {
    const auto well = wellRecords::read(db, wellId);
    if (!well)
        return;
    m_well = *well;
    m_wellPath = NORLEX_getWellPath(&db, m_well);
    const std::wstring standard = propertyRecords::standardTemplate(db, NORLEX_dataTypeLog);
    if (standard.empty()) {
        refuseMissing(
            &db, L"there is no template of logs in this container; the standard one is expected");
        return;
    }
    const NORLEX_propTemplate logs(&db, standard);
    if (!logs.isOK())
        return;
    m_templateId = logs.getID();
    m_fields = logs.getFieldList();
    m_ok = true;
    if (isNewWell)
        return;
    const auto rows = db.query(sql(L"SELECT p_group, name FROM property WHERE w_id = ",
                                   key(wellId),
                                   L" ORDER BY p_group, name"));
    while (rows && rows->next())
        m_taken.emplace_back(rows->get_text(1), rows->get_text(0));
    std::sort(m_taken.begin(), m_taken.end());
}

bool maker::isOK() const {
    return m_ok;
}

bool maker::isTaken(const NORLEX_propDescription& prop) const {
    return std::binary_search(m_taken.begin(), m_taken.end(), names::plain(prop));
}

std::int64_t maker::insertRow(const newLog& log, const NORLEX_propDescription& prop) {
    if (!propertyRecords::insertLog(m_db, m_well.wellId, m_templateId, prop, log.comment))
        return 0;
    // By the largest key, not by the names: the table has no index on them. The transaction holds
    // the write lock, so the largest key is the one just given.
    const std::int64_t id = query::counter(&m_db, L"SELECT max(pr_id) FROM property");
    return id != 0 && propertyFields::addAll(m_db, id, m_fields) ? id : 0;
}

bool maker::writeSamples(const newLog& log, const NORLEX_propDescription& prop) {
    const std::wstring path = samplePathOf(m_wellPath, prop);
    return log.later ? m_db.files().writeLater(path, log.writeSamples)
                     : m_db.files().write(path, log.writeSamples);
}

bool maker::create(const newLog& log) {
    const auto prop = names::plain(log.description);
    if (!m_ok || !names::areStorable(prop))
        return false;
    const auto place = std::lower_bound(m_taken.begin(), m_taken.end(), prop);
    if (place != m_taken.end() && *place == prop)
        return refuse(L"the well " + names::shown(m_well) + L" has a property " + names::shown(prop)
                      + L" already; another name or group is expected");
    const std::int64_t id = insertRow(log, prop);
    if (id == 0 || !writeSamples(log, prop)
        || (!log.attributes.empty()
            && !metadata::add(m_db, metadata::ofProperty, id, log.attributes))
        || (!m_isStamped && !wellRecords::touch(m_db, m_well.wellId)))
        return false;
    m_isStamped = true;
    m_taken.insert(place, prop);
    journal::add(m_db,
                 eventKind::property,
                 eventAction::create,
                 names::shown(m_well) + L": " + names::shown(prop));
    announce::afterCommit(m_db, [well = m_well, prop](auto& observer, const auto& container) {
        observer.createProperty(container, well, prop);
    });
    return true;
}

} // namespace logRecords

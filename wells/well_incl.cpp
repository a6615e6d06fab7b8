// The survey of a well and what follows it.
#include "NORLEX_well.h"
#include "events/change_watch.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "wells/property_records.h"
#include "wells/query.h"

using namespace sqlText;

NORLEX_inclinometry* NORLEX_well::getIncl() {
    if (!m_incl && m_ok)
        m_incl = std::make_unique<NORLEX_inclinometry>(m_db, m_wellId);
    else
        followMissed();
    return m_incl.get();
}

// What was changed in another thread meanwhile.
void NORLEX_well::followMissed() {
    if (!m_watch || !m_watch->takeMissed())
        return;
    if (m_incl)
        m_incl->update();
    renewVDM();
}

void NORLEX_well::onGlobalUpdate(const eventMsgDescription& message) {
    const bool isAboutWell =
        message.kind == eventKind::well || message.kind == eventKind::container;
    if (isAboutWell && message.action == eventAction::remove)
        m_ok =
            m_ok
            && query::counter(m_db, sql(L"SELECT w_id FROM well_base WHERE w_id = ", key(m_wellId)))
                   != 0;
    else if (isAboutWell && message.action == eventAction::update) {
        if (m_incl)
            m_incl->update();
        renewVDM();
    } else if (message.action == eventAction::remove)
        renewVDM(); // with a velocity property the model goes
}

bool NORLEX_well::checkIncl() {
    return m_ok && getIncl()->isValid();
}

// `change` alters the rows that the trajectory is computed from; the survey in memory and the
// absolute depths of the properties follow, or nothing changes at all.
bool NORLEX_well::editTrajectory(const std::function<bool()>& change, bool silent) {
    auto* incl = getIncl();
    if (incl == nullptr)
        return refuse(L"the well is not open");
    bool stored = false;
    {
        transaction edit(m_db);
        if (edit.isOpen() && change()) {
            incl->update();
            renewVDM();
            if (recalcProperties(!silent) && updateEditTime()) {
                if (!silent)
                    announceUpdate();
                stored = edit.commit();
            }
        }
    }
    if (!stored) { // back to what the rows say
        incl->update();
        renewVDM();
    }
    return stored;
}

bool NORLEX_well::recalcProperties(bool announce) {
    for (const auto& row : propertyRecords::ofWell(*m_db, m_wellId))
        if (!NORLEX_wellProperty(m_db, row.id, getIncl()).recalcDepth(announce))
            return false;
    return true;
}

bool NORLEX_well::loadInclFromData(const std::vector<inclData>& stations, bool silent) {
    auto* incl = getIncl();
    if (incl == nullptr)
        return refuse(L"the well is not open");
    if (incl->checIsDataLoaded(stations))
        return true;
    return editTrajectory(
        [&] {
            if (!incl->clear())
                return false;
            for (const auto& station : stations)
                if (!incl->addPoint(station.depth, station.angle, station.azimuth))
                    return false;
            return true;
        },
        silent);
}

bool NORLEX_well::clearIncl() {
    return editTrajectory([this] { return m_incl->clear(); }, false);
}

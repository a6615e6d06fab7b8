// The survey of a well and what follows it.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/property_records.h"

NORLEX_inclinometry* NORLEX_well::getIncl() {
    if (!m_incl && m_ok)
        m_incl = std::make_unique<NORLEX_inclinometry>(m_db, m_wellId);
    return m_incl.get();
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
            if (recalcProperties() && updateEditTime()) {
                if (!silent)
                    announceUpdate();
                stored = edit.commit();
            }
        }
    }
    if (!stored)
        incl->update(); // back to what the rows say
    return stored;
}

bool NORLEX_well::recalcProperties() {
    for (const auto& row : propertyRecords::ofWell(*m_db, m_wellId))
        if (!NORLEX_wellProperty(m_db, row.id, getIncl()).recalcDepth())
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

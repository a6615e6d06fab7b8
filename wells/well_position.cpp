// Where a well stands and how deep it is.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "store/well_path.h"
#include "wells/announce.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_summary.h"
#include "wells/query.h"
#include "wells/well_records.h"

#include <algorithm>
#include <cmath>

using namespace sqlText;

namespace {

bool refuseNumber(const wchar_t* what) {
    return refuse(std::wstring(what) + L" is not finite; a number is expected");
}

// "… WHERE name = '…' AND field = '…' AND work_object = '…'"
double
numberOfTriple(odbc_database* db, const wchar_t* statement, const NORLEX_wellDescription& well) {
    return query::number(db,
                         sql(statement,
                             quotedName(well.name),
                             L" AND field = ",
                             quotedName(well.field),
                             L" AND work_object = ",
                             quotedName(well.workObject)));
}

} // namespace

double NORLEX_well::getAltitude(odbc_database* db, const NORLEX_wellDescription& well) {
    return numberOfTriple(db, L"SELECT altitude FROM well_base WHERE name = ", well);
}
double NORLEX_well::getBottomBaseValue(odbc_database* db, const NORLEX_wellDescription& well) {
    return numberOfTriple(db, L"SELECT bottom FROM well_base WHERE name = ", well);
}
double NORLEX_well::getXCoord(odbc_database* db, const NORLEX_wellDescription& well) {
    return numberOfTriple(db, L"SELECT x FROM well_base WHERE name = ", well);
}
double NORLEX_well::getYCoord(odbc_database* db, const NORLEX_wellDescription& well) {
    return numberOfTriple(db, L"SELECT y FROM well_base WHERE name = ", well);
}

double NORLEX_well::getAltitude() const {
    return numberOf(L"SELECT altitude FROM well_base WHERE w_id = ");
}
double NORLEX_well::getXCoord() const {
    return numberOf(L"SELECT x FROM well_base WHERE w_id = ");
}
double NORLEX_well::getYCoord() const {
    return numberOf(L"SELECT y FROM well_base WHERE w_id = ");
}
double NORLEX_well::getBottomBaseValue() const {
    return numberOf(L"SELECT bottom FROM well_base WHERE w_id = ");
}

bool NORLEX_well::setPosition(odbc_database* db,
                              const NORLEX_wellDescription& given,
                              double x,
                              double y) {
    const auto well = names::plain(given);
    if (!query::isOpen(db))
        return false;
    if (!std::isfinite(x) || !std::isfinite(y))
        return refuseNumber(L"a coordinate of the well");
    transaction edit(db);
    const std::uint32_t wellId = edit.isOpen() ? wellRecords::find(*db, well) : 0;
    if (wellId == 0)
        return refuseMissing(db, L"there is no well " + names::shown(well));
    if (!db->exec(sql(L"UPDATE well_base SET x =",
                      number(x),
                      L", y =",
                      number(y),
                      L" WHERE name = ",
                      quotedName(well.name),
                      L" AND field = ",
                      quotedName(well.field),
                      L" AND work_object = ",
                      quotedName(well.workObject)))
        || !wellRecords::touch(*db, wellId))
        return false;
    announce::afterCommit(
        *db,
        [stored = NORLEX_wellDescription{well.workObject, well.field, well.name, wellId}](
            auto& observer, const auto& container) { observer.updateWell(container, stored); });
    return edit.commit();
}

// `change` alters the row; nothing that is computed from the survey moves with it.
bool NORLEX_well::editPosition(const std::function<bool()>& change) {
    if (!m_ok)
        return refuse(L"the well is not open");
    transaction edit(m_db);
    if (!edit.isOpen() || !change() || !updateEditTime())
        return false;
    announceUpdate();
    if (!edit.commit())
        return false;
    if (m_incl)
        m_incl->update(); // holds the head's coordinates
    return true;
}

bool NORLEX_well::setXCoord(double x) {
    if (!std::isfinite(x))
        return refuseNumber(L"the well's x");
    return editPosition([&] {
        return m_db->exec(
            sql(L"UPDATE well_base SET x=", number(x), L" WHERE w_id=", key(m_wellId)));
    });
}

bool NORLEX_well::setYCoord(double y) {
    if (!std::isfinite(y))
        return refuseNumber(L"the well's y");
    return editPosition([&] {
        return m_db->exec(
            sql(L"UPDATE well_base SET y=", number(y), L" WHERE w_id=", key(m_wellId)));
    });
}

bool NORLEX_well::setPosition(double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y))
        return refuseNumber(L"a coordinate of the well");
    return editPosition([&] {
        return m_db->exec(sql(L"UPDATE well_base SET x=",
                              number(x),
                              L", y =",
                              number(y),
                              L" WHERE w_id=",
                              key(m_wellId)));
    });
}

bool NORLEX_well::setPosition(double x, double y, double altitude) {
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(altitude))
        return refuseNumber(L"the well's position");
    return editTrajectory(
        [&] {
            return m_db->exec(sql(L"UPDATE well_base SET x=",
                                  number(x),
                                  L", y =",
                                  number(y),
                                  L" WHERE w_id=",
                                  key(m_wellId)))
                   && m_db->exec(sql(L"UPDATE well_base SET altitude=",
                                     number(altitude),
                                     L" WHERE w_id=",
                                     key(m_wellId)));
        },
        false);
}

bool NORLEX_well::setAltitude(double altitude) {
    if (!std::isfinite(altitude))
        return refuseNumber(L"the well's altitude");
    return editTrajectory(
        [&] {
            return m_db->exec(sql(L"UPDATE well_base SET altitude=",
                                  number(altitude),
                                  L" WHERE w_id=",
                                  key(m_wellId)));
        },
        false);
}

bool NORLEX_well::setBottom(double depth) {
    if (!std::isfinite(depth))
        return refuseNumber(L"the well's bottom");
    return editPosition([&] {
        return m_db->exec(
            sql(L"UPDATE well_base SET bottom =", fixed(depth, 2), L" WHERE w_id=", key(m_wellId)));
    });
}

bool NORLEX_well::resetBottom() {
    return editPosition([&] {
        return m_db->exec(sql(L"UPDATE well_base SET bottom = '' WHERE w_id=", key(m_wellId)));
    });
}

double NORLEX_well::getBottom() {
    const std::wstring stored = textOf(L"SELECT bottom FROM well_base WHERE w_id = ");
    if (!m_ok || !stored.empty())
        return getBottomBaseValue();
    auto* incl = getIncl();
    double bottom = 0.0;
    for (std::size_t i = 0; i < incl->getDataCount(); ++i)
        bottom = std::max(bottom, incl->getDepthData(i));
    auto logs = propertyRecords::ofWell(*m_db, m_wellId);
    std::erase_if(logs, [](const auto& p) { return p.type != NORLEX_dataTypeLog; });
    for (const auto& log : propertySummary::of(*m_db, m_wellId, logs))
        if (log.range)
            bottom = std::max(bottom, log.range->bot);
    return bottom;
}

// While stations are held the survey answers offsets from the head, and the head's own
// coordinates when none are.
void NORLEX_well::getCoord(double absDepth, double& x, double& y) {
    if (!m_ok || absDepth == NORLEX_unknownDepth)
        return;
    auto* incl = getIncl();
    incl->getCoordAbs(absDepth, x, y);
    if (incl->getDataCount() == 0)
        return;
    x += getXCoord();
    y += getYCoord();
}

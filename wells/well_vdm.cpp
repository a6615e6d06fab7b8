// The velocity-depth model of a well.
#include "NORLEX_well.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "trajectory/vdm_points.h"
#include "wells/names.h"
#include "wells/query.h"
#include "wells/table_rows.h"
#include "wells/well_records.h"

#include <cmath>

namespace {

// The velocity of an interval; 0 for an empty text, nothing for one that is no number.
std::optional<double> velocityOf(const std::wstring& text) {
    if (text.find_first_not_of(L" \t") == std::wstring::npos)
        return 0.0;
    const auto number = tableRows::toNumber(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

bool readIntervals(const std::vector<NORLEX_intervalValue>& given,
                   std::vector<vdmPoints::interval>& out) {
    for (const auto& one : given) {
        const auto velocity = velocityOf(one.value);
        if (!velocity)
            return refuse(L"the velocity of interval " + std::to_wstring(out.size() + 1) + L" is \""
                          + one.value + L"\"; a number in m/s, or nothing, is expected");
        out.push_back({one.top, one.bot, *velocity});
    }
    return !out.empty()
           || refuse(
               L"there are no intervals to make a velocity model of; one or more is expected");
}

} // namespace

NORLEX_wellVDM* NORLEX_well::getVDM() {
    followMissed();
    if (!m_vdm && m_ok)
        m_vdm = std::make_unique<NORLEX_wellVDM>(m_db, m_wellId, getAltitude());
    return m_vdm.get();
}

// The object stays, since properties hold it; it reads its points when it is next asked.
void NORLEX_well::renewVDM() {
    if (m_vdm)
        *m_vdm = NORLEX_wellVDM(m_db, m_wellId, getAltitude());
}

// `change` alters the stored points; the well is stamped with them and announced.
bool NORLEX_well::editVDM(const std::function<bool(NORLEX_wellVDM&)>& change) {
    if (!m_ok)
        return refuse(L"the well is not open");
    auto& vdm = *getVDM();
    transaction edit(m_db);
    if (!edit.isOpen() || !change(vdm) || !updateEditTime())
        return false;
    announceUpdate();
    return edit.commit();
}

bool NORLEX_well::clearVDM() {
    return editVDM([](NORLEX_wellVDM& vdm) { return vdm.clear(); });
}

bool NORLEX_well::VDMimport_fromPoints(const std::vector<vdm_data>& points) {
    return editVDM([&](NORLEX_wellVDM& vdm) {
        if (!vdm.clear())
            return false;
        for (const auto& point : points)
            if (!vdm.add(point.depth, point.time))
                return false;
        return true;
    });
}

bool NORLEX_well::VDMimport_fromModel(const std::vector<NORLEX_intervalValue>& given,
                                      NORLEX_vdmType type) {
    std::vector<vdmPoints::interval> intervals;
    if (type != NORLEX_vdmTypeDepth && type != NORLEX_vdmTypeTime)
        return refuse(L"the type of a velocity model is " + std::to_wstring(type)
                      + L"; 0 (depth) or 1 (time) is expected");
    if (!m_ok)
        return refuse(L"the well is not open");
    if (!readIntervals(given, intervals))
        return false;
    transaction edit(m_db); // the altitude stays as it is read
    return edit.isOpen()
           && VDMimport_fromPoints(type == NORLEX_vdmTypeTime
                                       ? vdmPoints::ofTimeIntervals(getAltitude(), intervals)
                                       : vdmPoints::ofDepthIntervals(getAltitude(), intervals))
           && edit.commit();
}

bool NORLEX_wellVDM::isExist(odbc_database* db, const NORLEX_wellDescription& well) {
    const std::uint32_t wellId =
        db != nullptr ? wellRecords::find(*db, names::plain(well)) : std::uint32_t{0};
    return wellId != 0 && isExist(db, static_cast<long long>(wellId));
}

bool NORLEX_wellVDM::copy(NORLEX_well* from, NORLEX_well* to, bool replace) {
    if (from == nullptr || to == nullptr || !from->isOK() || !to->isOK())
        return refuse(L"a velocity model is copied between two open wells");
    auto& source = *from->getVDM();
    const auto& target = *to->getVDM();
    if (source.m_db == target.m_db && from->getID() == to->getID())
        return refuse(L"the velocity model of " + names::shown(to->getDescription())
                      + L" would be copied onto itself; another well is expected");
    transaction edit(target.m_db);
    if (!edit.isOpen())
        return false;
    std::vector<vdm_data> points;
    source.m_loaded = false;
    source.getList(points);
    std::erase_if(points, [](const auto& point) { return point.dt_id == L"0"; });
    if (points.empty())
        return refuse(L"the well " + names::shown(from->getDescription())
                      + L" has no velocity model");
    if (!replace && isExist(target.m_db, static_cast<long long>(to->getID())))
        return refuse(L"the well " + names::shown(to->getDescription())
                      + L" has a velocity model already; a well without one is expected, or that "
                        L"it may be replaced");
    return to->VDMimport_fromPoints(points) && edit.commit();
}

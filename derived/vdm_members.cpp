// Velocity-depth models made of a well's data, and shown as data: members of NORLEX_well.
#include "NORLEX_well.h"
#include "derived/options.h"
#include "derived/result_data.h"
#include "derived/sonic_times.h"
#include "derived/source_data.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "trajectory/vdm_points.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/query.h"

#include <cmath>

using options::shown;
using propertyRecords::geometry;
using propertyRecords::geometryOf;

namespace {

// A model of which no point may be left out.
bool arrange(std::vector<vdmPoints::sourced> given, double altitude, std::vector<vdm_data>& out) {
    std::wstring fault;
    out = vdmPoints::arranged(
        std::move(given), altitude, [&](const vdmPoints::sourced&, std::wstring reason) {
            if (fault.empty())
                fault = std::move(reason);
        });
    return fault.empty() || refuse(fault);
}

// The times of markers, as a model holds them.
bool readMarkers(NORLEX_wellProperty& markers,
                 std::size_t field,
                 const NORLEX_VDMcreateOptions& options,
                 std::vector<vdmPoints::sourced>& out) {
    const auto& records = markers.getRecords();
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::wstring text = markers.getValue(field, i);
        if (text.empty())
            continue;
        const auto time = markers.getNumber(field, i);
        if (!time || !std::isfinite(*time) || records[i].topAbs == NORLEX_unknownDepth)
            return refuse(L"the time of the marker at the absolute depth "
                          + shown(records[i].topAbs) + L" is \"" + text
                          + L"\"; a number at a known depth is expected");
        out.push_back({records[i].topAbs, vdmPoints::storedTime(*time, options)});
    }
    return !out.empty() || refuse(L"no marker has a time; one or more is expected");
}

// Makes the property, or empties the one that is there.
std::unique_ptr<NORLEX_wellProperty>
emptied(NORLEX_well& well, NORLEX_dataType type, const NORLEX_propDescription& prop) {
    if (!well.isPropertyExist(prop))
        return well.createPropertyPtr(type, prop);
    auto property = well.openProperty(prop);
    if (!property)
        return nullptr;
    if (property->getType() != type) {
        refuse(L"the property " + names::shown(prop) + L" is of another kind: "
               + getDataNameByEnum(property->getType()) + L"; another name is expected");
        return nullptr;
    }
    std::vector<std::int64_t> keys;
    for (const auto& record : property->getRecords())
        keys.push_back(record.obj_id);
    return keys.empty() || property->removeGeometryByID(keys) ? std::move(property) : nullptr;
}

} // namespace

bool NORLEX_well::VDMimport_fromMarkers(const NORLEX_propDescription& markers,
                                        const std::wstring& name,
                                        const NORLEX_VDMcreateOptions& options) {
    if (!m_ok || !query::isOpen(m_db))
        return refuse(L"the well is not open");
    transaction edit(m_db); // what is read stays as it is
    const auto property = edit.isOpen() ? openProperty(markers) : nullptr;
    if (!property)
        return false;
    if (geometryOf(property->getType()) != geometry::points)
        return refuse(L"the property " + names::shown(markers)
                      + L" holds no points; markers with times are expected");
    const auto field = sourceData::findField(*property, markers, name);
    std::vector<vdmPoints::sourced> times;
    std::vector<vdm_data> points;
    return field && readMarkers(*property, *field, options, times)
           && arrange(std::move(times), getAltitude(), points) && VDMimport_fromPoints(points)
           && edit.commit();
}

bool NORLEX_well::VDMimport_fromSonic(const NORLEX_propDescription& prop,
                                      const NORLEX_VDMcreateOptions& given) {
    if (!options::isNumber(L"the depth of a tie point", given.tieDepth)
        || !options::isNumber(L"the time of a tie point", given.tieTime)
        || !options::isNotNegative(L"the longest gap of a sonic log", given.maxGap)
        || !options::isNotNegative(L"the step of a velocity model", given.step))
        return false;
    if (!m_ok || !query::isOpen(m_db))
        return refuse(L"the well is not open");
    transaction edit(m_db); // what is read stays as it is
    const auto log = edit.isOpen() ? sourceData::readLog(*this, prop) : std::nullopt;
    if (!log)
        return false;
    const std::wstring& units = given.units.empty() ? log->units : given.units;
    const auto length = sonicTimes::lengthOf(units);
    if (!length)
        return refuse(L"the unit of " + names::shown(prop) + L" is \"" + units
                      + L"\"; us/m or us/ft is expected");
    // the tie point must fit the well head, and what is below it fits the tie point
    std::vector<vdm_data> tie;
    const double tieTime = vdmPoints::storedTime(given.tieTime, given);
    if (!arrange({{given.tieDepth, tieTime}}, getAltitude(), tie))
        return false;
    const auto points = sonicTimes::integrated(
        log->samples, {given.tieDepth, tieTime, *length, given.maxGap, given.step});
    return points && VDMimport_fromPoints(*points) && edit.commit();
}

bool NORLEX_well::makeVelocity(NORLEX_dataType type,
                               double NORLEX_vdmItem::*velocity,
                               const NORLEX_propDescription& given) {
    if (!m_ok || !query::isOpen(m_db))
        return refuse(L"the well is not open");
    const auto prop = names::plain(given);
    transaction edit(m_db);
    if (!edit.isOpen())
        return false;
    std::vector<NORLEX_vdmItem> model;
    getVDM()->getVDModel(model, true);
    if (model.empty())
        return refuse(L"the well " + names::shown(getDescription()) + L" has no velocity model");
    if (!resultData::hasTemplate(*m_db, type))
        return false;
    const auto property = emptied(*this, type, prop);
    const auto field = property ? resultData::numericField(*property) : std::nullopt;
    if (!field)
        return false;
    std::vector<NORLEX_bulkRow> rows;
    for (const auto& item : model) {
        NORLEX_bulkRow row;
        row.topAbs = item.topDepth;
        row.botAbs = item.botDepth;
        row.values.resize(property->getFields().size());
        if (std::isfinite(item.*velocity)) // two points at one time have none
            row.values[*field] = shown(item.*velocity, 2);
        rows.push_back(std::move(row));
    }
    return property->prepareBulk(rows) && edit.commit();
}

bool NORLEX_well::VDMmakeIntervalVelocity(const NORLEX_propDescription& result) {
    return makeVelocity(NORLEX_dataTypeVDMInterval, &NORLEX_vdmItem::intervalVelocity, result);
}

bool NORLEX_well::VDMmakeAverageVelocity(const NORLEX_propDescription& result) {
    return makeVelocity(NORLEX_dataTypeVDMAvg, &NORLEX_vdmItem::averageVelocity, result);
}

// The depths that the properties of a well span.
#include "NORLEX_well.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "store/well_path.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/property_summary.h"
#include "wells/sample_file.h"

using propertyRecords::geometry;

bool NORLEX_well::rangeOf(const NORLEX_propDescription& given,
                          const std::function<bool(NORLEX_dataType)>& isMeant,
                          NORLEX_depthRange& range) const {
    const auto prop = names::plain(given);
    const std::int64_t id = NORLEX_wellProperty::getID(m_db, m_wellId, prop);
    const auto row = id != 0 ? propertyRecords::read(*m_db, id) : std::nullopt;
    if (!row || !isMeant(row->type))
        return refuseMissing(m_db,
                             L"the well has no property " + names::shown(prop) + L" of the kind");
    const auto summary = propertySummary::of(*m_db, m_wellId, {*row}).front();
    if (!summary.range)
        return refuse(L"the property " + names::shown(prop) + L" holds no records");
    range = *summary.range;
    return true;
}

bool NORLEX_well::getPropertyDepthRange(const NORLEX_propDescription& prop,
                                        NORLEX_depthRange& range) const {
    return rangeOf(
        prop, [](NORLEX_dataType) { return true; }, range);
}

bool NORLEX_well::getPropertyBaseDepthRange(const NORLEX_propDescription& prop,
                                            NORLEX_depthRange& range) const {
    const auto isInDatabase = [](NORLEX_dataType type) {
        const auto kind = propertyRecords::geometryOf(type);
        return kind == geometry::points || kind == geometry::intervals;
    };
    return rangeOf(prop, isInDatabase, range);
}

bool NORLEX_well::getPropertyBordersRange(const NORLEX_propDescription& prop,
                                          NORLEX_depthRange& range) const {
    return rangeOf(
        prop, [](NORLEX_dataType type) { return type == NORLEX_dataTypeBorder; }, range);
}

bool NORLEX_well::getPropertySerialDepthRange(const NORLEX_propDescription& prop,
                                              NORLEX_depthRange& range) const {
    return rangeOf(
        prop, [](NORLEX_dataType type) { return type == NORLEX_dataTypeSerial; }, range);
}

bool NORLEX_well::getPropertyLasDepthRange(const NORLEX_propDescription& given,
                                           NORLEX_depthRange& range) const {
    const auto prop = names::plain(given);
    const std::int64_t id = NORLEX_wellProperty::getID(m_db, m_wellId, prop);
    const auto row = id != 0 ? propertyRecords::read(*m_db, id) : std::nullopt;
    if (!row || row->type != NORLEX_dataTypeLog)
        return refuseMissing(m_db, L"the well has no log " + names::shown(prop));
    sampleFile::header head;
    const std::wstring path = samplePathOf(NORLEX_getWellPath(m_db, m_wellId), prop);
    if (sampleFile::readRange(path, head, range))
        return true;
    const bool isEmpty = head.firstSample != 0 && head.count == 0;
    return isEmpty ? refuse(L"the log " + names::shown(prop) + L" has no samples") : false;
}

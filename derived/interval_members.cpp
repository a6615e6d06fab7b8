// Intervals made from data, and computed for: members of NORLEX_well and NORLEX_wellProperty.
#include "NORLEX_well.h"
#include "derived/field_values.h"
#include "derived/interval_statistics.h"
#include "derived/options.h"
#include "derived/ore_intervals.h"
#include "derived/result_data.h"
#include "derived/sample_order.h"
#include "derived/source_data.h"
#include "derived/value_intervals.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/names.h"
#include "wells/property_records.h"
#include "wells/query.h"

#include <cmath>
#include <limits>

using options::shown;
using propertyRecords::geometry;
using propertyRecords::geometryOf;

namespace {

bool areSound(const NORLEX_intervalOptions& given) {
    if (given.from > given.to)
        return refuse(L"values from " + shown(given.from) + L" to " + shown(given.to)
                      + L" are none; a smaller number first is expected");
    return options::isNumber(L"the smallest value of an interval", given.from)
           && options::isNumber(L"the largest value of an interval", given.to)
           && options::isNotNegative(L"the smallest thickness of an interval", given.minThickness)
           && options::isNotNegative(L"the largest gap within an interval", given.maxGap);
}

bool areSound(const NORLEX_oreOptions& given) {
    return options::isNumber(L"the cutoff of ore", given.cutoff)
           && options::isNotNegative(L"the smallest thickness of ore", given.minThickness)
           && options::isNotNegative(L"the largest thickness of waste", given.maxWaste);
}

// "from 20 to 75", "from 20", "to 75"; nothing without a bound.
std::wstring boundsOf(const NORLEX_intervalOptions& given) {
    std::wstring out;
    if (given.from != std::numeric_limits<double>::lowest())
        out = L"from " + shown(given.from);
    if (given.to != std::numeric_limits<double>::max())
        out += (out.empty() ? L"to " : L" to ") + shown(given.to);
    return out;
}

// Two decimals, and of a small number as many as show two digits that count: 0.0034.
int decimalsOf(double number) {
    const double size = std::abs(number);
    return size > 0.0 && size < 0.1 ? 1 - static_cast<int>(std::floor(std::log10(size))) : 2;
}

bool isLog(const NORLEX_well& well, odbc_database* db, const NORLEX_propDescription& prop) {
    return NORLEX_wellProperty::getDataTypeStringByName(db, well.getID(), prop)
           == getDataTypeEnum(NORLEX_dataTypeLog);
}

} // namespace

bool NORLEX_well::createIntervalsFromProp(const NORLEX_propDescription& source,
                                          const std::wstring& field,
                                          const NORLEX_intervalOptions& given,
                                          const NORLEX_propDescription& result) {
    if (!areSound(given))
        return false;
    std::vector<depthSpan> spans;
    if (isLog(*this, m_db, source)) {
        const auto log = sourceData::readLog(*this, source);
        if (!log)
            return false;
        spans = valueIntervals::ofLog(log->samples, given.from, given.to);
    } else {
        const auto values = sourceData::readColumn(*this, source, field);
        if (!values)
            return false;
        spans = valueIntervals::ofPieces(sourceData::asPieces(*values), given.from, given.to);
    }
    std::vector<resultData::record> records;
    for (const auto& span :
         valueIntervals::united(std::move(spans), given.maxGap, given.minThickness))
        records.push_back({span, source.name, boundsOf(given)});
    return resultData::writeRecords(m_db, *this, NORLEX_dataTypeInterval, result, records);
}

bool NORLEX_well::calcAttributeToColumn(const NORLEX_propDescription& log,
                                        const NORLEX_propDescription& column,
                                        const std::wstring& field,
                                        NORLEX_statistic statistic) {
    if (!options::isChoice(L"the statistic", statistic, NORLEX_statisticDeviation))
        return false;
    if (!query::isOpen(m_db))
        return false;
    transaction edit(m_db); // the records stay as they are read
    const auto source = edit.isOpen() ? sourceData::readLog(*this, log) : std::nullopt;
    const auto property = source ? openProperty(column) : nullptr;
    if (!property)
        return false;
    if (geometryOf(property->getType()) != geometry::intervals)
        return refuse(L"the property " + names::shown(column)
                      + L" holds no intervals; intervals or a column are expected");
    const auto& records = property->getRecords();
    std::vector<depthSpan> intervals;
    intervals.reserve(records.size());
    for (const auto& record : records)
        intervals.push_back({record.top, record.bot});
    const auto results = intervalStatistics::of(source->samples, intervals, statistic);
    std::vector<fieldValues::value> values;
    for (std::size_t i = 0; i < results.size(); ++i)
        values.push_back({records[i].obj_id,
                          std::isfinite(results[i]) && !sampleOrder::isMissing(results[i])
                              ? shown(results[i])
                              : std::wstring()});
    return fieldValues::write(*m_db, getDescription(), *property, field, values) && edit.commit();
}

bool NORLEX_wellProperty::createOreInterval(odbc_database* db,
                                            std::uint32_t wellId,
                                            const NORLEX_propDescription& source,
                                            const std::wstring& field,
                                            const NORLEX_propDescription& ore,
                                            const NORLEX_oreOptions& given) {
    NORLEX_well well(db, wellId);
    if (!well.isOK() || !areSound(given))
        return false;
    std::vector<depthPiece> pieces;
    if (field.empty()) {
        const auto log = sourceData::readLog(well, source);
        if (!log)
            return false;
        pieces = depthPieces::ofSamples(log->samples);
    } else {
        const auto values = sourceData::readColumn(well, source, field);
        if (!values)
            return false;
        if (values->arePoints)
            return refuse(L"the property " + names::shown(source)
                          + L" holds points; intervals with values, or a log, are expected");
        pieces = values->pieces;
    }
    std::vector<resultData::record> records;
    for (const auto& [span, mean] : oreIntervals::drawn(pieces, given))
        records.push_back({span,
                           shown(mean, decimalsOf(mean)),
                           L"mean " + shown(mean, decimalsOf(mean) + 2) + L" over "
                               + shown(span.thickness(), 2) + L" m"});
    return resultData::writeRecords(db, well, NORLEX_dataTypeInterval, ore, records);
}

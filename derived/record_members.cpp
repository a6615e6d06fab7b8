// Markers and data sets made from logs: members of NORLEX_well and NORLEX_wellProperty.
#include "NORLEX_well.h"
#include "derived/crossings.h"
#include "derived/options.h"
#include "derived/result_data.h"
#include "derived/sample_order.h"
#include "derived/source_data.h"
#include "platform/transaction.h"
#include "wells/names.h"

using options::shown;

namespace {

std::vector<NORLEX_bulkRow>
rowsOf(const std::vector<NORLEX_logSample>& samples, std::size_t fields, std::size_t valueField) {
    std::vector<NORLEX_bulkRow> out;
    for (const auto& sample : samples) {
        if (sampleOrder::isMissing(sample.value))
            continue;
        NORLEX_bulkRow row;
        row.top = sample.depth;
        row.topAbs = sample.depthAbs;
        row.values.resize(fields);
        row.values[valueField] = shown(sample.value);
        out.push_back(std::move(row));
    }
    return out;
}

} // namespace

// A marker is named as the log goes on below it, "GR > 75", and described by its depth.
bool NORLEX_well::makeMarkerFromLAS(const NORLEX_propDescription& log,
                                    double cutoff,
                                    NORLEX_crossing crossing,
                                    const NORLEX_propDescription& result) {
    if (!options::isChoice(L"the direction of a crossing", crossing, NORLEX_crossingFalling)
        || !options::isNumber(L"the cutoff of a log", cutoff))
        return false;
    const auto source = sourceData::readLog(*this, log);
    if (!source)
        return false;
    std::vector<resultData::record> records;
    for (const auto& [depth, rises] : crossings::found(source->samples, cutoff, crossing))
        records.push_back({{depth, depth},
                           log.name + (rises ? L" > " : L" < ") + shown(cutoff),
                           shown(depth, 2)});
    return resultData::writeRecords(m_db, *this, NORLEX_dataTypeMarker, result, records);
}

bool NORLEX_wellProperty::createSerialFromLAS(odbc_database* db,
                                              std::uint32_t wellId,
                                              const NORLEX_propDescription& log,
                                              const NORLEX_propDescription& serial) {
    NORLEX_well well(db, wellId);
    if (!well.isOK())
        return false;
    const auto source = sourceData::readLog(well, log);
    if (!source)
        return false;
    transaction edit(db);
    if (!edit.isOpen() || !resultData::hasTemplate(*db, NORLEX_dataTypeSerial)
        || !create(db, wellId, NORLEX_dataTypeSerial, serial))
        return false;
    const auto property = well.openProperty(serial);
    const auto field = property ? resultData::numericField(*property) : std::nullopt;
    return field
           && property->prepareBulk(rowsOf(source->samples, property->getFields().size(), *field))
           && edit.commit();
}

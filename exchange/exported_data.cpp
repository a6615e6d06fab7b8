#include "exchange/exported_data.h"

#include "exchange/well_index.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "store/well_path.h"
#include "wells/sample_file.h"

#include <algorithm>
#include <unordered_map>

using namespace sqlText;
using propertyRecords::geometry;

namespace exportedData {

namespace {

bool readProperties(odbc_database& db, const std::wstring& chosen, std::vector<source>& out) {
    const auto rows = db.query(sql(
        L"SELECT well_base.work_object, well_base.field, well_base.name, well_base.w_id, property.pr_id, property.name, property.p_group, base_template.type FROM property INNER JOIN well_base ON well_base.w_id = property.w_id LEFT JOIN base_template ON base_template.bt_id = property.bt_id WHERE ",
        chosen,
        L" ORDER BY well_base.work_object, well_base.field, well_base.name, property.pr_id"));
    if (!rows)
        return refuse(L"the properties cannot be read: " + db.last_error());
    while (rows->next())
        out.push_back({{rows->get_text(0),
                        rows->get_text(1),
                        rows->get_text(2),
                        static_cast<std::uint32_t>(rows->get_counter(3))},
                       {rows->get_text(5), rows->get_text(6)},
                       rows->get_counter(4),
                       propertyRecords::geometryOf(getDataTypeByEnum(rows->get_text(7))),
                       {},
                       {}});
    return true;
}

bool readFields(odbc_database& db, const std::wstring& chosen, std::vector<source>& properties) {
    std::unordered_map<std::int64_t, source*> byKey;
    for (auto& property : properties)
        byKey[property.propertyId] = &property;
    const auto rows = db.query(sql(
        L"SELECT field.pr_id, f_id, field.name FROM field INNER JOIN property ON property.pr_id = field.pr_id WHERE ",
        chosen,
        L" ORDER BY f_id"));
    if (!rows)
        return refuse(L"the fields cannot be read: " + db.last_error());
    while (rows->next())
        if (const auto property = byKey.find(rows->get_counter(0)); property != byKey.end()) {
            property->second->fieldKeys.push_back(rows->get_counter(1));
            property->second->fieldNames.push_back(rows->get_text(2));
        }
    return true;
}

void addDepth(tableWriter& table, double depth) {
    if (depth == NORLEX_unknownDepth)
        table.add(L"");
    else
        table.add(depth);
}

bool writeSamples(odbc_database& db,
                  const source& property,
                  std::size_t fields,
                  tableWriter& table,
                  std::uint64_t& rows) {
    std::vector<NORLEX_logSample> samples;
    if (!sampleFile::read(
            samplePathOf(NORLEX_getWellPath(&db, property.well), property.description), samples))
        return false;
    const std::wstring well = wellReference(property.well);
    for (const auto& sample : samples) {
        table.add(well);
        addDepth(table, sample.depth);
        addDepth(table, sample.depthAbs);
        if (sample.value == NORLEX_missingValue)
            table.add(L"");
        else
            table.add(sample.value);
        for (std::size_t i = 1; i < fields; ++i)
            table.add(L"");
        if (!table.endRow())
            return false;
    }
    rows += samples.size();
    return true;
}

} // namespace

bool find(odbc_database& db,
          const NORLEX_propDescription& prop,
          const std::vector<std::uint32_t>& wells,
          std::vector<source>& out) {
    const std::wstring chosen =
        sql(L"property.name = ",
            quotedName(prop.name),
            L" AND property.p_group = ",
            quotedName(prop.group),
            wells.empty() ? std::wstring() : L" AND property.w_id IN(" + keyList(wells) + L")");
    return readProperties(db, chosen, out) && readFields(db, chosen, out);
}

std::vector<std::wstring> depthColumns(geometry kind) {
    if (kind == geometry::intervals)
        return {L"top", L"bot", L"top_abs", L"bot_abs"};
    return {L"depth", L"depth_abs"};
}

bool write(odbc_database& db,
           const source& property,
           const std::vector<column>& fields,
           tableWriter& table,
           std::uint64_t& rows) {
    if (property.kind == geometry::samples)
        return writeSamples(db, property, fields.size(), table, rows);
    recordSet records;
    if (property.kind == geometry::picks
            ? !records.readPicks(db, property.well.wellId, property.description.name)
            : !records.readRecords(db, property.kind, property.fieldKeys))
        return false;
    std::vector<std::size_t> places; // of the table's fields among the property's; past them: none
    for (const auto& field : fields) {
        const auto& names = property.fieldNames;
        places.push_back(static_cast<std::size_t>(std::find(names.begin(), names.end(), field.field)
                                                  - names.begin()));
    }
    const std::wstring well = wellReference(property.well);
    for (std::size_t i = 0; i < records.records().size(); ++i) {
        const auto& r = records.records()[i];
        table.add(well);
        addDepth(table, r.top);
        if (property.kind == geometry::intervals)
            addDepth(table, r.bot);
        addDepth(table, r.topAbs);
        if (property.kind == geometry::intervals)
            addDepth(table, r.botAbs);
        for (std::size_t f = 0; f < places.size(); ++f) {
            const auto value = records.value(places[f], i);
            if (const auto& dictionary = fields[f].dictionary)
                table.add(dictionary->getShownValue(std::wstring(value)));
            else
                table.add(value);
        }
        if (!table.endRow())
            return false;
    }
    rows += records.records().size();
    return true;
}

} // namespace exportedData

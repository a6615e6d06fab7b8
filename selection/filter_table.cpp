#include "selection/filter_table.h"

#include "NORLEX_logSample.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "selection/column_values.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

using namespace sqlText;

namespace filterTable {

namespace {

using valuesByWell = std::unordered_map<std::uint32_t, columnValues>;

std::optional<double> numberOf(std::wstring text) {
    std::ranges::replace(text, L',', L'.');
    const auto number = numbers::toDouble(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

// Column 0 the well, 1 the record, 2 the value, then one depth of a point or two of an interval.
bool read(odbc_database& db, const std::wstring& statement, valuesByWell& out) {
    const auto rows = db.query(statement);
    if (!rows)
        return refuse(L"the database refuses to read a column: " + db.last_error());
    const bool isPoint = rows->column_count() == 4;
    while (rows->next()) {
        const auto value = numberOf(rows->get_text(2));
        if (!value)
            continue;
        columnValues& values = out[static_cast<std::uint32_t>(rows->get_counter(0))];
        if (isPoint)
            values.addPoint(rows->get_counter(1), rows->get_double(3), *value);
        else
            values.addInterval(
                rows->get_counter(1), rows->get_double(3), rows->get_double(4), *value);
    }
    return true;
}

std::optional<valuesByWell> valuesOf(odbc_database& db,
                                     const filterEvaluation::wellChoice& wells,
                                     const NORLEX_filterColumn& column) {
    const auto templates = filterEvaluation::templatesByGeometry(db);
    const std::wstring ofColumn = sql(filterEvaluation::restriction(wells),
                                      L" AND property.name = ",
                                      quotedName(column.first.name),
                                      L" AND property.p_group = ",
                                      quotedName(column.first.group),
                                      L" AND field.name = ",
                                      quotedName(column.second));
    valuesByWell out;
    if (!read(db,
              sql(L"SELECT property.w_id, point_data.obj_id, val.value, point_data.depth_abs",
                  filterEvaluation::joined(L"point_data", templates.points),
                  ofColumn),
              out)
        || !read(
            db,
            sql(L"SELECT property.w_id, interval_data.obj_id, val.value, interval_data.bot_abs, interval_data.top_abs",
                filterEvaluation::joined(L"interval_data", templates.intervals),
                ofColumn),
            out))
        return std::nullopt;
    for (auto& [well, values] : out)
        values.arrange();
    return out;
}

} // namespace

std::optional<std::vector<std::vector<double>>>
of(odbc_database& db,
   const filterEvaluation::wellChoice& wells,
   const std::vector<NORLEX_wellFilterDepths>& hits,
   const std::vector<NORLEX_filterColumn>& columns) {
    std::vector<std::vector<double>> table;
    for (const auto& well : hits)
        for (const auto& [first, second] : well.depths) {
            table.push_back({*numbers::toDouble(well.wellId), first, second});
            table.back().reserve(3 + columns.size());
        }
    for (const auto& column : columns) {
        const auto values = valuesOf(db, wells, column);
        if (!values)
            return std::nullopt;
        for (auto& row : table) {
            const auto ofWell = values->find(static_cast<std::uint32_t>(row[0]));
            row.push_back(ofWell == values->end() ? NORLEX_missingValue
                                                  : ofWell->second.at(row[1], row[2]));
        }
    }
    return table;
}

} // namespace filterTable

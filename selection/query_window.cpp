#include "selection/query_window.h"

#include "NORLEX_dataType.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/sql_text.h"
#include "selection/query_rows.h"
#include "selection/query_text.h"
#include "store/well_path.h"
#include "wells/property_records.h"
#include "wells/query.h"
#include "wells/sample_file.h"

#include <algorithm>
#include <cmath>

using namespace sqlText;

namespace queryWindow {

namespace {

struct window {
    double from = 0.0;
    double to = 0.0;

    [[nodiscard]] bool holds(double depth) const { return depth >= from && depth <= to; }
};

std::wstring ofProperty(const NORLEX_query& query) {
    return sql(L" WHERE property.name = ",
               quotedName(query.prop.name),
               L" AND property.p_group = ",
               quotedName(query.prop.group));
}

// The joins are made in this order, from the properties of the name: with another one the engine
// reads all values of a container, and without statistics it takes such a one.
wellSet::list ofRecords(odbc_database& db,
                        const NORLEX_query& query,
                        const wchar_t* table,
                        const std::wstring& condition) {
    return queryRows::read(
        db,
        sql(queryText::head,
            L"FROM well_base WHERE well_base.w_id IN (SELECT property.w_id FROM property CROSS JOIN field CROSS JOIN val CROSS JOIN ",
            table,
            ofProperty(query),
            L" AND field.pr_id = property.pr_id AND val.f_id = field.f_id AND ",
            table,
            L".obj_id = val.obj_id",
            condition,
            L")"));
}

wellSet::list points(odbc_database& db, const NORLEX_query& query, const window& depths) {
    return ofRecords(db,
                     query,
                     L"point_data",
                     sql(L" AND point_data.depth_abs <=",
                         number(depths.to),
                         L" AND point_data.depth_abs >=",
                         number(depths.from)));
}

wellSet::list intervals(odbc_database& db, const NORLEX_query& query, const window& depths) {
    return ofRecords(db,
                     query,
                     L"interval_data",
                     sql(L" AND interval_data.bot_abs <=",
                         number(depths.to),
                         L" AND interval_data.top_abs >=",
                         number(depths.from)));
}

// Picks of the correlation that bears the property's name.
wellSet::list borders(odbc_database& db, const NORLEX_query& query, const window& depths) {
    return queryRows::read(
        db,
        sql(queryText::head,
            L"FROM well_base LEFT JOIN correlation_data ON correlation_data.w_id = well_base.w_id LEFT JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id LEFT JOIN correlation ON correlation.cor_id = correlation_borders.cor_id WHERE correlation.name = ",
            quotedName(query.prop.name),
            L" AND correlation_data.depth_abs <=",
            number(depths.to),
            L" AND correlation_data.depth_abs >=",
            number(depths.from)));
}

bool hasSample(const std::wstring& path, const window& depths) {
    std::vector<NORLEX_logSample> samples;
    return sampleFile::read(path, samples)
           && std::ranges::any_of(samples, [&](const NORLEX_logSample& sample) {
                  return depths.holds(sample.depthAbs) && sample.value != NORLEX_missingValue;
              });
}

// The file of each well is read; a missing value is no data.
wellSet::list logs(odbc_database& db, const NORLEX_query& query, const window& depths) {
    wellSet::list wells = queryRows::read(
        db,
        sql(queryText::head,
            L"FROM property LEFT JOIN well_base ON well_base.w_id = property.w_id LEFT JOIN base_template ON base_template.bt_id = property.bt_id",
            ofProperty(query),
            L" AND base_template.type = 'NORLEX_dataTypeLog'"));
    std::erase_if(wells, [&](const NORLEX_wellDescription& well) {
        return !hasSample(samplePathOf(NORLEX_getWellPath(&db, well), query.prop), depths);
    });
    return wells;
}

std::vector<std::wstring> typesOf(odbc_database& db, const NORLEX_query& query) {
    std::vector<std::wstring> types;
    query::texts(
        &db,
        sql(L"SELECT distinct base_template.type FROM property LEFT JOIN base_template ON base_template.bt_id = property.bt_id",
            ofProperty(query),
            L" ORDER BY base_template.type"),
        types);
    return types;
}

wellSet::list
ofType(odbc_database& db, NORLEX_dataType type, const NORLEX_query& query, const window& depths) {
    using propertyRecords::geometry;
    switch (propertyRecords::geometryOf(type)) {
    case geometry::points:
        return points(db, query, depths);
    case geometry::intervals:
        return intervals(db, query, depths);
    case geometry::samples:
        return logs(db, query, depths);
    case geometry::picks:
        return borders(db, query, depths);
    case geometry::none:
        break;
    }
    return {};
}

} // namespace

wellSet::list wells(odbc_database& db, const NORLEX_query& query) {
    if (!std::isfinite(query.fromDepth) || !std::isfinite(query.toDepth)) {
        refuse(L"a depth window needs two finite depths");
        return {};
    }
    const auto [from, to] = std::minmax(query.fromDepth, query.toDepth);
    wellSet::list found;
    for (const auto& type : typesOf(db, query))
        found = wellSet::joined(std::move(found),
                                ofType(db, getDataTypeByEnum(type), query, {from, to}));
    return found;
}

} // namespace queryWindow

#include "wells/property_summary.h"

#include "odbc_database.h"
#include "platform/files.h"
#include "platform/sql_text.h"
#include "store/well_path.h"
#include "wells/sample_file.h"

#include <algorithm>
#include <map>
#include <string>

using namespace sqlText;
using propertyRecords::geometry;

namespace propertySummary {

namespace {

// Columns 1 to 5 of a grouped row: count, top, bottom, absolute top, absolute bottom.
summary summaryOf(const odbc_result& row) {
    return {static_cast<std::uint64_t>(row.get_counter(1)),
            NORLEX_depthRange{
                row.get_double(2), row.get_double(3), row.get_double(4), row.get_double(5)}};
}

using byProperty = std::map<std::int64_t, summary>;

void collect(odbc_database& db, const std::wstring& statement, byProperty& out) {
    const auto rows = db.query(statement);
    while (rows && rows->next())
        out[rows->get_counter(0)] = summaryOf(*rows);
}

byProperty recordSummaries(odbc_database& db, const std::vector<propertyRecords::row>& properties) {
    std::vector<std::int64_t> points;
    std::vector<std::int64_t> intervals;
    for (const auto& p : properties) {
        const auto kind = propertyRecords::geometryOf(p.type);
        if (kind == geometry::points)
            points.push_back(p.id);
        else if (kind == geometry::intervals)
            intervals.push_back(p.id);
    }
    byProperty out;
    if (!points.empty())
        collect(
            db,
            sql(L"SELECT field.pr_id, count(distinct point_data.obj_id), MIN(point_data.depth) as top_real, MAX(point_data.depth) as bot_real, MAX(point_data.depth_abs) as top_abs, MIN(point_data.depth_abs) as bot_abs FROM field INNER JOIN val ON val.f_id = field.f_id INNER JOIN point_data ON val.obj_id = point_data.obj_id WHERE field.pr_id IN (",
                keyList(points),
                L") GROUP BY field.pr_id"),
            out);
    if (!intervals.empty())
        collect(
            db,
            sql(L"SELECT field.pr_id, count(distinct interval_data.obj_id), MIN(interval_data.top) as top_real, MAX(interval_data.bot) as bot_real, MAX(interval_data.top_abs) as top_abs, MIN(interval_data.bot_abs) as bot_abs FROM field INNER JOIN val ON val.f_id = field.f_id INNER JOIN interval_data ON val.obj_id = interval_data.obj_id WHERE field.pr_id IN (",
                keyList(intervals),
                L") GROUP BY field.pr_id"),
            out);
    return out;
}

// By the correlation's name, which is that of the property that mirrors it.
std::map<std::wstring, summary> pickSummaries(odbc_database& db,
                                              std::uint32_t wellId,
                                              const std::vector<propertyRecords::row>& properties) {
    std::map<std::wstring, summary> out;
    const bool isAny = std::any_of(properties.begin(), properties.end(), [](const auto& p) {
        return propertyRecords::geometryOf(p.type) == geometry::picks;
    });
    if (!isAny)
        return out;
    const auto rows = db.query(sql(
        L"SELECT correlation.name, count(correlation_data.d_id), MIN(correlation_data.depth_real) as top_real, MAX(correlation_data.depth_real) as bot_real, MAX(correlation_data.depth_abs) as top_abs, MIN(correlation_data.depth_abs) as bot_abs FROM correlation_data INNER JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id INNER JOIN correlation ON correlation_borders.cor_id = correlation.cor_id WHERE correlation_data.w_id = ",
        key(wellId),
        L" GROUP BY correlation.name"));
    while (rows && rows->next())
        out[rows->get_text(0)] = summaryOf(*rows);
    return out;
}

summary logSummary(const std::wstring& wellPath, const NORLEX_propDescription& prop) {
    const std::wstring path = samplePathOf(wellPath, prop);
    sampleFile::header head;
    NORLEX_depthRange range;
    if (!files::isFile(path) || !sampleFile::readRange(path, head, range))
        return {};
    return {head.count, range};
}

} // namespace

std::vector<summary>
of(odbc_database& db, std::uint32_t wellId, const std::vector<propertyRecords::row>& properties) {
    const byProperty records = recordSummaries(db, properties);
    const auto picks = pickSummaries(db, wellId, properties);
    const std::wstring wellPath = NORLEX_getWellPath(&db, wellId);
    std::vector<summary> out;
    for (const auto& p : properties) {
        const auto kind = propertyRecords::geometryOf(p.type);
        if (kind == geometry::samples)
            out.push_back(logSummary(wellPath, p.description));
        else if (const auto pick = picks.find(p.description.name);
                 kind == geometry::picks && pick != picks.end())
            out.push_back(pick->second);
        else if (const auto record = records.find(p.id); record != records.end())
            out.push_back(record->second);
        else
            out.emplace_back();
    }
    return out;
}

} // namespace propertySummary

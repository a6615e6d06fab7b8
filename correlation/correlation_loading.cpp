// Picks read: those of a well, the one of a border, the one near a depth.
#include "NORLEX_correlation.h"
#include "correlation/cor_rows.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "wells/query.h"

#include <cmath>

using namespace sqlText;
using corRows::quote;

namespace correlation {

namespace {

// Columns in which loaded picks lie, by direction.
std::wstring selectPicks(std::int64_t id, std::uint32_t wellId, NORLEX_dataDirection direction) {
    const bool isMeasured = direction == NORLEX_dataDirectionMeasured;
    return sql(
        L"SELECT correlation_data.d_id, correlation_borders.b_id, ",
        isMeasured ? L"correlation_data.depth_real" : L"correlation_data.depth_abs",
        L", correlation_borders.name, correlation_borders.b_group, correlation_data.type FROM correlation_data LEFT JOIN correlation_borders ON correlation_data.b_id = correlation_borders.b_id LEFT JOIN correlation ON correlation_borders.cor_id = correlation.cor_id LEFT JOIN well_base ON correlation_data.w_id = well_base.w_id WHERE correlation.cor_id =",
        key(id),
        L" AND well_base.w_id =",
        key(wellId),
        isMeasured ? L" ORDER BY correlation_data.depth_real ASC"
                   : L" ORDER BY correlation_data.depth_abs DESC",
        L", correlation_data.d_id");
}

} // namespace

std::wstring correlation::findPoint(odbc_database* db,
                                    const NORLEX_propDescription& cor,
                                    const wellRef& well,
                                    double absolute,
                                    double tolerance) {
    const auto found = query::isOpen(db) ? well.find(*db) : std::nullopt;
    if (!found || !std::isfinite(absolute) || !std::isfinite(tolerance))
        return {};
    return query::text(
        db,
        sql(L"SELECT correlation_borders.name FROM correlation_borders LEFT JOIN correlation_data ON correlation_borders.b_id = correlation_data.b_id LEFT JOIN correlation ON correlation_borders.cor_id = correlation.cor_id LEFT JOIN well_base ON correlation_data.w_id = well_base.w_id WHERE correlation.name = ",
            quotedName(cor.name),
            L" AND(correlation_data.depth_abs <=",
            number(absolute + tolerance),
            L" AND correlation_data.depth_abs >=",
            number(absolute - tolerance),
            L") AND well_base.name = ",
            quotedName(found->name),
            L" AND well_base.field = ",
            quotedName(found->field),
            L" AND well_base.work_object = ",
            quotedName(found->workObject),
            L" ORDER BY abs(correlation_data.depth_abs - (",
            number(absolute),
            L")), correlation_data.d_id"));
}

bool correlation::getDepth(odbc_database* db,
                           const NORLEX_propDescription& cor,
                           const wellRef& well,
                           const std::wstring& border,
                           double& measured,
                           double& absolute) {
    const auto id = getBorderNameID(db, cor, border);
    const auto found = id != 0 ? well.find(*db) : std::nullopt;
    const auto rows =
        found ? db->query(sql(L"SELECT depth_real, depth_abs FROM correlation_data WHERE w_id =",
                              key(found->wellId),
                              L" AND b_id =",
                              key(id),
                              L" ORDER BY depth_real"))
              : nullptr;
    if (!rows || !rows->next())
        return false;
    measured = rows->get_double(0);
    absolute = rows->get_double(1);
    return true;
}

bool correlation::loadData(odbc_database* db,
                           const NORLEX_propDescription& cor,
                           const wellRef& well,
                           NORLEX_dataDirection direction,
                           std::vector<point>& points) {
    points.clear();
    if (!query::isOpen(db))
        return false;
    const auto id = corRows::find(*db, cor.name);
    if (id == 0)
        return refuseMissing(db, L"there is no correlation " + quote(plainName(cor.name)));
    const auto found = well.find(*db);
    if (!found)
        return false;
    const auto rows = db->query(selectPicks(id, found->wellId, direction));
    if (!rows)
        return refuse(L"the picks cannot be read: " + db->last_error());
    while (rows->next())
        points.push_back({rows->get_double(2),
                          rows->get_text(3),
                          rows->get_text(4),
                          rows->get_int(5),
                          rows->get_counter(0),
                          rows->get_counter(1)});
    return true;
}

} // namespace correlation

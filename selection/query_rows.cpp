#include "selection/query_rows.h"

#include "odbc_database.h"

#include <algorithm>

namespace queryRows {

wellSet::list read(odbc_database& db, std::wstring_view statement) {
    wellSet::list wells;
    const auto rows = db.query(statement);
    while (rows && rows->next())
        if (const auto wellId = static_cast<std::uint32_t>(rows->get_counter(3)); wellId != 0)
            wells.push_back({rows->get_text(0), rows->get_text(1), rows->get_text(2), wellId});
    std::ranges::sort(wells, {}, &NORLEX_wellDescription::wellId);
    return wells;
}

} // namespace queryRows

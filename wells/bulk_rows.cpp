#include "wells/bulk_rows.h"

#include "platform/last_error.h"
#include "wells/record_depths.h"
#include "wells/record_writer.h"

namespace bulkRows {

NORLEX_geometryRecord toRecord(const NORLEX_bulkRow& row,
                               bool arePoints,
                               std::size_t fieldCount,
                               NORLEX_inclinometry* incl,
                               std::wstring& reason) {
    NORLEX_geometryRecord r{row.top, row.bot, row.topAbs, row.botAbs};
    if (fieldCount == 0) // a record is found by its values
        reason = L"the property has no field; one is expected before records are written";
    else if (row.values.size() != fieldCount)
        reason = std::to_wstring(row.values.size()) + L" values are given; "
                 + std::to_wstring(fieldCount) + L", one for each field, are expected";
    else
        reason = arePoints ? recordDepths::completePoint(r, incl)
                           : recordDepths::completeInterval(r, incl);
    return r;
}

bool write(odbc_database& db,
           propertyRecords::geometry kind,
           const std::vector<std::int64_t>& fields,
           NORLEX_inclinometry* incl,
           const std::vector<NORLEX_bulkRow>& rows) {
    recordWriter writer(db, kind);
    std::wstring reason;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto record = toRecord(
            rows[i], kind == propertyRecords::geometry::points, fields.size(), incl, reason);
        if (!reason.empty())
            return refuse(L"row " + std::to_wstring(i + 1) + L": " + reason);
        if (!writer.add(record, fields, rows[i].values))
            return false;
    }
    return writer.finish();
}

} // namespace bulkRows

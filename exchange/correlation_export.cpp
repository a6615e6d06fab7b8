// The picks of a correlation written as a wide table.
#include "NORLEX_correlation.h"
#include "NORLEX_correlationTable.h"
#include "NORLEX_lastError.h"
#include "exchange/table_writer.h"
#include "exchange/well_index.h"
#include "odbc_database.h"
#include "platform/files.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/sql_text.h"
#include "wells/query.h"

#include <cerrno>
#include <optional>
#include <unordered_map>
#include <vector>

using namespace sqlText;

namespace {

std::wstring selectPicks(std::int64_t correlationId, bool areAbsolute) {
    return sql(
        L"SELECT well_base.w_id, well_base.work_object, well_base.field, well_base.name, correlation_data.b_id, ",
        areAbsolute ? L"correlation_data.depth_abs" : L"correlation_data.depth_real",
        L" FROM correlation_data INNER JOIN correlation_borders ON correlation_borders.b_id = correlation_data.b_id INNER JOIN well_base ON well_base.w_id = correlation_data.w_id WHERE correlation_borders.cor_id =",
        key(correlationId),
        // where older data have a border twice in a well, the upper one is written
        L" ORDER BY well_base.work_object, well_base.field, well_base.name, well_base.w_id, correlation_data.depth_real");
}

// One well's row.
class wellRow {
public:
    explicit wellRow(const std::vector<correlation::borderName>& borders) {
        for (const auto& one : borders)
            m_columns.try_emplace(one.borderId, m_columns.size());
        m_depths.resize(m_columns.size());
    }
    void begin(const NORLEX_wellDescription& well) {
        m_well = well;
        m_depths.assign(m_depths.size(), std::nullopt);
    }
    [[nodiscard]] std::uint32_t wellId() const { return m_well.wellId; }
    [[nodiscard]] bool add(std::int64_t border, double depth) {
        auto& place = m_depths[m_columns[border]];
        if (place)
            return false;
        place = depth;
        return true;
    }
    [[nodiscard]] bool write(tableWriter& table) const {
        table.add(wellReference(m_well));
        for (const auto& depth : m_depths)
            if (depth)
                table.add(*depth);
            else
                table.add(L"");
        return table.endRow();
    }

private:
    std::unordered_map<std::int64_t, std::size_t> m_columns;
    std::vector<std::optional<double>> m_depths;
    NORLEX_wellDescription m_well;
};

bool writeWells(odbc_database& db,
                const std::wstring& statement,
                const std::vector<correlation::borderName>& borders,
                tableWriter& table,
                NORLEX_correlationExportResult& result) {
    const auto rows = db.query(statement);
    if (!rows)
        return refuse(L"the picks cannot be read: " + db.last_error());
    wellRow row(borders);
    while (rows->next()) {
        const auto wellId = static_cast<std::uint32_t>(rows->get_counter(0));
        if (row.wellId() != wellId) {
            if (row.wellId() != 0 && !row.write(table))
                return false;
            row.begin({rows->get_text(1), rows->get_text(2), rows->get_text(3), wellId});
            ++result.wells;
        }
        if (row.add(rows->get_counter(4), rows->get_double(5)))
            ++result.picks;
    }
    return row.wellId() == 0 || row.write(table);
}

bool writeAll(odbc_database* db,
              const std::wstring& path,
              const NORLEX_correlationExportOptions& options,
              NORLEX_correlationExportResult& result) {
    if (!query::isOpen(db) || !tableWriter::accepts(options.separator, options.encoding))
        return false;
    using store = correlation::correlation;
    const auto id = store::getCorrelationID(db, options.correlation);
    if (id == 0)
        return refuseMissing(
            db, L"there is no correlation \"" + plainName(options.correlation.name) + L"\"");
    std::vector<correlation::borderName> borders;
    store::getBordersBase(db, id, borders);
    return files::replace(path, [&](std::FILE* file) {
        tableWriter table(file, options.separator, options.encoding);
        table.add(L"well");
        for (const auto& one : borders)
            table.add(one.name);
        const bool done =
            table.endRow()
            && writeWells(*db, selectPicks(id, options.areAbsolute), borders, table, result)
            && table.finish();
        if (!NORLEX_lastError().empty())
            errno = 0; // what the database left there is not why
        return done;
    });
}

} // namespace

NORLEX_correlationExportResult NORLEX_exportCorrelation(
    odbc_database* db, const std::wstring& path, const NORLEX_correlationExportOptions& options) {
    NORLEX_correlationExportResult result;
    refuse({}); // so that the line found afterwards is of this table
    result.ok = writeAll(db, path, options, result);
    if (result.ok)
        return result;
    result.wells = result.picks = 0;
    if (NORLEX_lastError().empty())
        refuse(L"cannot write " + path);
    result.error = NORLEX_lastError();
    return result;
}

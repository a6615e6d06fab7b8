#include "NORLEX_wellTableImport.h"

#include "NORLEX_lastError.h"
#include "exchange/table_source.h"
#include "exchange/well_rows.h"
#include "exchange/well_store.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/names.h"
#include "wells/query.h"

#include <utility>

namespace {

// One table of wells on its way into the container.
class wellTableImport {
public:
    wellTableImport(odbc_database& db,
                    const NORLEX_wellTableOptions& options,
                    const std::wstring& path,
                    NORLEX_wellTableResult& result)
        : m_options(options), m_db(db), m_source(path), m_rows(options), m_wells(db, options),
          m_result(result) {}

    [[nodiscard]] bool run() {
        if (!m_source.open(m_options.format, m_options.hasHeader) || !m_rows.open(m_source))
            return false;
        transaction whole(&m_db);
        return whole.isOpen() && m_wells.open() && load() && m_wells.finish() && whole.commit();
    }

private:
    [[nodiscard]] bool load();
    [[nodiscard]] bool takeRow(const wellRows::row& row);

    const NORLEX_wellTableOptions& m_options;
    odbc_database& m_db;
    tableSource m_source;
    wellRows::parser m_rows;
    wellStore m_wells;
    NORLEX_wellTableResult& m_result;
};

// False when it cannot be written; a row that is bad is only noted. Behind a bad row that is not to
// be left out, rows are read for their faults alone.
bool wellTableImport::takeRow(const wellRows::row& row) {
    auto& report = m_result.report;
    auto& known = m_wells.of(row.well);
    if (known.row != 0) {
        m_source.addError(report,
                          L"the well " + names::shown(row.well) + L" stands on row "
                              + std::to_wstring(known.row) + L" already");
        return true;
    }
    known.row = m_source.rowNumber();
    const bool isThere = known.wellId != 0;
    using enum NORLEX_onExistingWell;
    if (isThere && m_options.onExisting == fail) {
        m_source.addError(report, L"the well " + names::shown(row.well) + L" exists already");
        return true;
    }
    if (isThere && m_options.onExisting == skip) {
        ++report.passedOver;
        return true;
    }
    if (report.badCount > 0 && !m_options.keepGoodRows)
        return true;
    ++report.taken;
    ++(isThere ? m_result.updated : m_result.created);
    return isThere ? m_wells.update(row, known) : m_wells.create(row);
}

bool wellTableImport::load() {
    std::vector<std::wstring> cells;
    wellRows::row row;
    while (m_source.next(cells)) {
        ++m_result.report.rows;
        std::wstring reason = m_rows.parse(cells, row);
        if (!reason.empty())
            m_source.addError(m_result.report, std::move(reason));
        else if (!takeRow(row))
            return false;
    }
    return m_source.isWhole() && m_source.judge(m_result.report, m_options.keepGoodRows);
}

} // namespace

NORLEX_wellTableImport::NORLEX_wellTableImport(odbc_database* db, NORLEX_wellTableOptions options)
    : m_db(db), m_options(std::move(options)) {}

NORLEX_wellTableResult NORLEX_wellTableImport::importFile(const std::wstring& path) {
    NORLEX_wellTableResult result;
    refuse({}); // so that the line found afterwards is of this table
    result.ok = query::isOpen(m_db) && wellTableImport(*m_db, m_options, path, result).run();
    if (result.ok)
        return result;
    result.report.taken = 0;
    result.created = result.updated = 0;
    result.error = tableRW::failure(m_db, path);
    return result;
}

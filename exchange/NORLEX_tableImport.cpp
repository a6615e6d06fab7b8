#include "NORLEX_tableImport.h"

#include "NORLEX_lastError.h"
#include "exchange/property_targets.h"
#include "exchange/table_source.h"
#include "exchange/value_lookup.h"
#include "exchange/well_index.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/missing.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "wells/names.h"
#include "wells/query.h"
#include "wells/record_writer.h"
#include "wells/well_records.h"

#include <algorithm>
#include <utility>

namespace {

// One table on its way into the container.
class tableImport {
public:
    tableImport(odbc_database& db,
                NORLEX_tableImportOptions options,
                const std::wstring& path,
                NORLEX_tableImportResult& result)
        : m_db(db), m_options(std::move(options)), m_source(path), m_result(result) {}

    [[nodiscard]] bool run() {
        if (!m_source.open(m_options.format, m_options.rows.hasHeader) || !findColumns())
            return false;
        transaction whole(&m_db);
        return whole.isOpen() && findWells() && readLookups() && load() && whole.commit();
    }

private:
    using cellRow = std::vector<std::wstring>;

    // Cells of one column are replaced by what a table of codes says.
    struct coded {
        std::size_t column = 0; // from 0
        valueLookup values;
    };

    [[nodiscard]] bool findColumns();
    [[nodiscard]] bool findDepths();
    [[nodiscard]] bool findWells();
    [[nodiscard]] bool readLookups();
    [[nodiscard]] bool load();
    [[nodiscard]] bool takeRow(propertyTargets& targets, recordWriter& writer);
    [[nodiscard]] bool isWithoutDepth() const;
    [[nodiscard]] propertyTargets::target* targetOfRow(propertyTargets& targets);
    [[nodiscard]] bool decode(std::wstring& reason);
    [[nodiscard]] const std::wstring& cell(int column) const;

    odbc_database& m_db;
    NORLEX_tableImportOptions m_options;
    tableSource m_source;
    NORLEX_tableImportResult& m_result;
    NORLEX_tableColumns m_columns; // those of coded fields stand behind the table's own
    std::vector<coded> m_lookups;
    std::size_t m_width = 0; // the last of the columns in use
    int m_wellColumn = 0;
    wellIndex m_wells;
    std::wstring m_lastReference;
    propertyTargets::target* m_lastTarget = nullptr;

    cellRow m_cells;
    std::vector<std::wstring> m_values;
    NORLEX_geometryRecord m_record;
};

bool tableImport::findDepths() {
    struct depth {
        const NORLEX_columnRef& given;
        const wchar_t* what;
        int& number;
    };
    const depth depths[] = {
        {m_options.depth, L"depth", m_columns.depth},
        {m_options.depthAbs, L"depth_abs", m_columns.depthAbs},
        {m_options.top, L"top", m_columns.top},
        {m_options.bot, L"bot", m_columns.bot},
        {m_options.topAbs, L"top_abs", m_columns.topAbs},
        {m_options.botAbs, L"bot_abs", m_columns.botAbs},
    };
    return std::all_of(std::begin(depths), std::end(depths), [&](const depth& d) {
        return m_source.header().find(d.given, d.what, d.number);
    });
}

bool tableImport::findColumns() {
    if (!findDepths())
        return false;
    if (m_options.well.name.empty() && !m_options.wellColumn.isSet())
        return refuse(L"a table needs a well, or a column that names the wells");
    if (m_options.well.name.empty()
        && !m_source.header().find(m_options.wellColumn, L"the well", m_wellColumn))
        return false;
    for (const auto& field : m_options.fields) {
        int number = 0;
        if (!m_source.header().find(field.column, L"the field " + field.name, number))
            return false;
        m_columns.fields.emplace_back(sqlText::plainName(field.name), number);
    }
    const auto& c = m_columns;
    int last = std::max({c.depth, c.depthAbs, c.top, c.bot, c.topAbs, c.botAbs});
    for (const auto& field : c.fields)
        last = std::max(last, field.second);
    m_width = static_cast<std::size_t>(last);
    return true;
}

// A fixed well is known by its key from here on.
bool tableImport::findWells() {
    if (m_wellColumn != 0)
        return m_wells.read(m_db, m_options.wellAttribute);
    m_options.well = names::plain(m_options.well);
    m_options.well.wellId = wellRecords::find(m_db, m_options.well);
    if (m_options.well.wellId == 0)
        return refuseMissing(&m_db, L"there is no well " + names::shown(m_options.well));
    m_wells.add({}, m_options.well);
    return true;
}

bool tableImport::readLookups() {
    for (std::size_t i = 0; i < m_options.fields.size(); ++i) {
        int& column = m_columns.fields[i].second;
        if (m_options.fields[i].lookup.empty() || column == 0)
            continue;
        auto& added = m_lookups.emplace_back();
        added.column = static_cast<std::size_t>(column) - 1;
        if (!added.values.read(m_options.fields[i].lookup))
            return false;
        column = static_cast<int>(m_width + m_lookups.size());
    }
    return true;
}

const std::wstring& tableImport::cell(int column) const {
    static const std::wstring none;
    const auto index = static_cast<std::size_t>(column) - 1; // of column 0: past every end
    return index < m_cells.size() ? m_cells[index] : none;
}

bool tableImport::isWithoutDepth() const {
    const auto& c = m_columns;
    const int depths[] = {c.depth, c.depthAbs, c.top, c.bot, c.topAbs, c.botAbs};
    return std::all_of(std::begin(depths), std::end(depths), [&](int column) {
        return numbers::trimmed(cell(column)).empty();
    });
}

// Null for a row that is bad, or whose well takes none.
propertyTargets::target* tableImport::targetOfRow(propertyTargets& targets) {
    std::wstring reference(numbers::trimmed(cell(m_wellColumn)));
    if (m_options.wellAttribute.empty())
        reference = sqlText::plainName(reference);
    if (m_lastTarget == nullptr || reference != m_lastReference) {
        std::wstring reason;
        const std::uint32_t wellId = m_wells.find(reference, reason);
        m_lastReference = reference;
        m_lastTarget = wellId == 0 ? nullptr : &targets.of(wellId);
        if (wellId == 0)
            m_source.addError(m_result.report, reason);
    }
    if (m_lastTarget == nullptr || m_lastTarget->fault.empty())
        return m_lastTarget;
    m_source.addError(m_result.report, m_lastTarget->fault);
    return nullptr;
}

// Puts the values of coded cells behind the table's own columns.
bool tableImport::decode(std::wstring& reason) {
    if (m_lookups.empty())
        return true;
    m_cells.resize(m_width);
    for (const auto& lookup : m_lookups) {
        const std::wstring code(numbers::trimmed(m_cells[lookup.column]));
        const std::wstring* const value = code.empty() ? &code : lookup.values.find(code);
        if (value == nullptr) {
            reason = L"column " + std::to_wstring(lookup.column + 1) + L": the code \"" + code
                     + L"\" is not in the table of codes";
            return false;
        }
        m_cells.push_back(*value);
    }
    return true;
}

// False when it cannot be written; a row that is bad is only noted. Behind a bad row that is not to
// be left out, rows are read for their faults alone.
bool tableImport::takeRow(propertyTargets& targets, recordWriter& writer) {
    auto& report = m_result.report;
    ++report.rows;
    if (m_options.rows.skipWithoutDepth && isWithoutDepth()) {
        ++report.passedOver;
        return true;
    }
    auto* const target = targetOfRow(targets);
    if (target == nullptr)
        return true;
    std::wstring reason;
    if (!decode(reason)
        || target->parser->parse(m_cells, target->survey.get(), m_record, m_values, reason)
               != tableRows::outcome::record) {
        m_source.addError(report, std::move(reason));
        return true;
    }
    if (report.badCount > 0 && !m_options.rows.keepGoodRows)
        return true;
    ++report.taken;
    return targets.use(*target) && writer.add(m_record, target->fields, m_values);
}

bool tableImport::load() {
    propertyTargets targets(m_db, m_options, m_columns);
    if (!targets.open())
        return false;
    recordWriter writer(m_db, targets.kind());
    while (m_source.next(m_cells))
        if (!takeRow(targets, writer))
            return false;
    if (!m_source.isWhole() || !m_source.judge(m_result.report, m_options.rows.keepGoodRows))
        return false;
    m_result.wells = targets.wellCount();
    m_result.created = targets.createdCount();
    return writer.finish() && targets.finish(m_wells);
}

} // namespace

NORLEX_tableImport::NORLEX_tableImport(odbc_database* db, NORLEX_tableImportOptions options)
    : m_db(db), m_options(std::move(options)) {}

NORLEX_tableImportResult NORLEX_tableImport::importFile(const std::wstring& path) {
    NORLEX_tableImportResult result;
    refuse({}); // so that the line found afterwards is of this table
    result.ok = query::isOpen(m_db) && tableImport(*m_db, m_options, path, result).run();
    if (result.ok)
        return result;
    result.report.taken = 0;
    result.wells = result.created = 0;
    result.error = tableRW::failure(m_db, path);
    return result;
}

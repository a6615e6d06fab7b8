// Picks of a correlation read from a long or a wide table.
#include "NORLEX_correlation.h"
#include "NORLEX_correlationTable.h"
#include "NORLEX_lastError.h"
#include "correlation/cor_edit.h"
#include "correlation/pick_writer.h"
#include "eventMsgDescription.h"
#include "exchange/table_source.h"
#include "exchange/value_lookup.h"
#include "exchange/well_index.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "wells/query.h"
#include "wells/table_rows.h"

#include <utility>
#include <vector>

namespace {

using correlation::newPick;

std::wstring cellName(int column, const std::wstring& text) {
    return L"column " + std::to_wstring(column) + L": \"" + text + L"\"";
}

// One table on its way into a correlation.
class tableOfPicks {
public:
    tableOfPicks(odbc_database& db,
                 const NORLEX_correlationTableOptions& options,
                 const std::wstring& path,
                 NORLEX_correlationTableResult& result)
        : m_db(db), m_options(options), m_path(path), m_source(path), m_result(result) {}

    [[nodiscard]] bool run();

private:
    struct borderColumn {
        int column = 0;
        std::wstring name;
    };

    [[nodiscard]] bool open();
    [[nodiscard]] bool findColumn(const columnSearch::header& header,
                                  const NORLEX_columnRef& given,
                                  const wchar_t* what,
                                  int& column) const;
    [[nodiscard]] bool openLong();
    [[nodiscard]] bool openWide();
    [[nodiscard]] bool load(pickWriter& writer);
    void takeRow(pickWriter& writer);
    [[nodiscard]] std::wstring cell(int column) const;
    // The picks of the row; each answers why there are none, or nothing.
    [[nodiscard]] std::wstring readWide(std::uint32_t wellId);
    [[nodiscard]] std::wstring readLong(std::uint32_t wellId);
    [[nodiscard]] std::wstring readDepth(int column, newPick& pick) const;
    [[nodiscard]] bool isWithoutDepth() const;

    odbc_database& m_db;
    const NORLEX_correlationTableOptions& m_options;
    std::wstring m_path;
    tableSource m_source;
    NORLEX_correlationTableResult& m_result;
    wellIndex m_wells;
    valueLookup m_names;
    int m_well = 0;
    int m_border = 0;
    int m_depth = 0;
    int m_group = 0;
    int m_type = 0;
    std::vector<borderColumn> m_borders; // of a wide table

    std::vector<std::wstring> m_cells;
    std::vector<newPick> m_picks; // of the row
};

bool tableOfPicks::findColumn(const columnSearch::header& header,
                              const NORLEX_columnRef& given,
                              const wchar_t* what,
                              int& column) const {
    return given.isSet() ? header.find(given, what, column)
                         : refuse(L"a table of picks needs the column of " + std::wstring(what));
}

bool tableOfPicks::openLong() {
    const auto& header = m_source.header();
    return m_source.open(m_options.format, m_options.rows.hasHeader)
           && findColumn(header, m_options.well, L"the well", m_well)
           && findColumn(header, m_options.border, L"the border", m_border)
           && findColumn(header, m_options.depth, L"the depth", m_depth)
           && header.find(m_options.group, L"the group", m_group)
           && header.find(m_options.type, L"the type", m_type)
           && (m_options.borderLookup.empty() || m_names.read(m_options.borderLookup));
}

// The header is a row like the others here: its cells name the borders.
bool tableOfPicks::openWide() {
    std::vector<std::wstring> cells;
    if (!m_source.open(m_options.format, false))
        return false;
    if (!m_source.next(cells))
        return m_source.isWhole() ? refuse(L"the table \"" + m_path + L"\" is empty") : false;
    if (!findColumn({L"\"" + m_path + L"\"", cells}, m_options.well, L"the well", m_well))
        return false;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const int column = static_cast<int>(i) + 1;
        std::wstring name = sqlText::plainName(numbers::trimmed(cells[i]));
        if (column == m_well || name.empty())
            continue;
        for (const auto& other : m_borders)
            if (other.name == name)
                return refuse(L"the columns " + std::to_wstring(other.column) + L" and "
                              + std::to_wstring(column) + L" of \"" + m_path
                              + L"\" are both of the border \"" + name + L"\"");
        m_borders.push_back({column, std::move(name)});
    }
    return !m_borders.empty() || refuse(L"the table \"" + m_path + L"\" has no column of a border");
}

std::wstring tableOfPicks::cell(int column) const {
    const auto index = static_cast<std::size_t>(column) - 1; // of column 0: past every end
    return index < m_cells.size() ? std::wstring(numbers::trimmed(m_cells[index])) : std::wstring();
}

std::wstring tableOfPicks::readDepth(int column, newPick& pick) const {
    const std::wstring text = cell(column);
    const auto depth = tableRows::toNumber(text);
    if (!depth)
        return cellName(column, text) + L" is no depth";
    (m_options.areAbsolute ? pick.depthAbs : pick.depth) = *depth;
    return {};
}

std::wstring tableOfPicks::readWide(std::uint32_t wellId) {
    for (const auto& border : m_borders) {
        if (cell(border.column).empty())
            continue;
        newPick pick;
        pick.wellId = wellId;
        pick.border = border.name;
        if (auto reason = readDepth(border.column, pick); !reason.empty())
            return reason;
        m_picks.push_back(std::move(pick));
    }
    return {};
}

std::wstring tableOfPicks::readLong(std::uint32_t wellId) {
    newPick pick;
    pick.wellId = wellId;
    pick.border = cell(m_border);
    pick.group = cell(m_group);
    if (!m_options.borderLookup.empty()) {
        const std::wstring* const name = m_names.find(pick.border);
        if (name == nullptr)
            return cellName(m_border, pick.border) + L" is not in the table of codes";
        pick.border = *name;
    }
    if (const std::wstring text = cell(m_type); !text.empty()) {
        const auto type = tableRows::toNumber(text);
        if (!type || !(*type >= 0.0 && *type <= 255.0)
            || *type != static_cast<double>(static_cast<int>(*type)))
            return cellName(m_type, text) + L" is no type of a border; 0 to 255 are expected";
        pick.type = static_cast<int>(*type);
    }
    auto reason = readDepth(m_depth, pick);
    m_picks.push_back(std::move(pick));
    return reason;
}

bool tableOfPicks::isWithoutDepth() const {
    return !m_options.isWide && m_options.rows.skipWithoutDepth && cell(m_depth).empty();
}

// A row is taken whole or not at all.
void tableOfPicks::takeRow(pickWriter& writer) {
    auto& report = m_result.report;
    m_picks.clear();
    std::wstring reason;
    std::wstring reference = cell(m_well);
    if (m_options.wellAttribute.empty())
        reference = sqlText::plainName(reference);
    const std::uint32_t wellId = m_wells.find(reference, reason);
    if (wellId != 0)
        reason = m_options.isWide ? readWide(wellId) : readLong(wellId);
    const std::size_t before = writer.size();
    for (std::size_t i = 0; reason.empty() && i < m_picks.size(); ++i) {
        std::wstring fault;
        if (writer.add(m_picks[i], fault) == pickWriter::outcome::bad)
            reason = std::move(fault);
    }
    if (!reason.empty()) {
        writer.cutBack(before);
        m_source.addError(report, std::move(reason));
    } else
        ++(writer.size() > before ? report.taken : report.passedOver);
}

bool tableOfPicks::load(pickWriter& writer) {
    auto& report = m_result.report;
    while (m_source.next(m_cells)) {
        ++report.rows;
        if (isWithoutDepth())
            ++report.passedOver;
        else
            takeRow(writer);
    }
    return m_source.isWhole() && m_source.judge(report, m_options.rows.keepGoodRows);
}

bool tableOfPicks::run() {
    if (!(m_options.isWide ? openWide() : openLong()))
        return false;
    transaction whole(&m_db);
    if (!whole.isOpen() || !m_wells.read(m_db, m_options.wellAttribute)
        || !correlation::correlation::createCorrelationLayer(&m_db, m_options.correlation))
        return false;
    corEdit edit(&m_db, m_options.correlation);
    if (!edit)
        return false;
    pickWriter writer(edit, m_options.onExisting);
    if (!writer.open())
        return false;
    for (const auto& border : m_borders)
        writer.addBorder(border.name); // in the order of the columns
    if (!load(writer) || !writer.finish())
        return false;
    m_result.picks = writer.sums();
    return edit.finish(eventAction::create,
                       std::to_wstring(writer.size()) + L" picks, "
                           + std::to_wstring(writer.sums().wells) + L" wells")
           && whole.commit();
}

} // namespace

NORLEX_correlationTableResult NORLEX_importCorrelation(
    odbc_database* db, const std::wstring& path, const NORLEX_correlationTableOptions& options) {
    NORLEX_correlationTableResult result;
    refuse({}); // so that the line found afterwards is of this table
    result.ok = query::isOpen(db) && tableOfPicks(*db, options, path, result).run();
    if (result.ok)
        return result;
    result.report.taken = 0;
    result.picks = {};
    result.error = tableRW::failure(db, path);
    return result;
}

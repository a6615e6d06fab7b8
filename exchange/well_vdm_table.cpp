// A table read into the velocity-depth model of a well.
#include "NORLEX_VDMtable.h"
#include "NORLEX_well.h"
#include "exchange/table_source.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "platform/strconv.h"
#include "platform/transaction.h"
#include "trajectory/vdm_points.h"
#include "wells/table_rows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// The numbers of a row, two or three.
struct numberRow {
    std::array<std::optional<double>, 3> cells; // none: empty
    std::uint64_t row = 0;
};

// Reads the numeric columns of one table of a well.
class vdmTable {
public:
    vdmTable(const std::wstring& path,
             const NORLEX_VDMtableOptions& options,
             NORLEX_well& well,
             NORLEX_tableReport& report)
        : m_source(path), m_options(options), m_well(well), m_report(report) {}

    [[nodiscard]] bool points(std::vector<vdm_data>& out);
    [[nodiscard]] bool intervals(std::vector<NORLEX_intervalValue>& out);

private:
    struct column {
        NORLEX_columnRef ref;
        const wchar_t* what;
        bool mayBeEmpty = false;
        int number = 0;
    };
    [[nodiscard]] bool open(std::vector<column> columns);
    [[nodiscard]] bool next(numberRow& out);
    [[nodiscard]] bool parse(const std::vector<std::wstring>& cells, numberRow& out);
    [[nodiscard]] double absolute(double depth);
    [[nodiscard]] bool end();

    tableSource m_source;
    const NORLEX_VDMtableOptions& m_options;
    NORLEX_well& m_well;
    NORLEX_tableReport& m_report;
    std::vector<column> m_columns;
};

bool vdmTable::open(std::vector<column> columns) {
    m_columns = std::move(columns);
    if (!m_source.open(m_options.format, m_options.hasHeader))
        return false;
    for (auto& one : m_columns) {
        if (!one.ref.isSet())
            return refuse(std::wstring(L"no column holds ") + one.what
                          + L"; its number or header is expected");
        if (!m_source.header().find(one.ref, one.what, one.number))
            return false;
    }
    return true;
}

// False of a bad row, which is noted.
bool vdmTable::parse(const std::vector<std::wstring>& cells, numberRow& out) {
    out = {{}, m_source.rowNumber()};
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const auto at = static_cast<std::size_t>(m_columns[i].number) - 1;
        const std::wstring text(at < cells.size() ? numbers::trimmed(cells[at]) : L"");
        if (text.empty() && m_columns[i].mayBeEmpty)
            continue;
        const auto number = tableRows::toNumber(text);
        if (!number || !std::isfinite(*number)) {
            m_source.addError(m_report,
                              std::wstring(m_columns[i].what) + L" is \"" + text
                                  + L"\"; a number is expected");
            return false;
        }
        out.cells[i] = number;
    }
    return true;
}

bool vdmTable::next(numberRow& out) {
    std::vector<std::wstring> cells;
    while (m_source.next(cells)) {
        ++m_report.rows;
        if (parse(cells, out))
            return true;
    }
    return false;
}

double vdmTable::absolute(double depth) {
    return m_options.values.depths == NORLEX_dataDirectionMeasured ? m_well.getIncl()->getAbs(depth)
                                                                   : depth;
}

bool vdmTable::end() {
    std::ranges::stable_sort(m_report.errors, {}, &NORLEX_tableRowError::row);
    return m_source.isWhole() && m_source.judge(m_report, m_options.keepGoodRows);
}

bool vdmTable::points(std::vector<vdm_data>& out) {
    if (!open({{m_options.depth, L"the depth"}, {m_options.time, L"the time"}}))
        return false;
    std::vector<vdmPoints::sourced> read;
    for (numberRow r; next(r);)
        read.push_back({absolute(*r.cells[0]),
                        vdmPoints::storedTime(*r.cells[1], m_options.values),
                        r.row,
                        m_source.lineNumber()});
    std::uint64_t left = 0;
    out = vdmPoints::arranged(
        read, m_well.getAltitude(), [&](const vdmPoints::sourced& bad, std::wstring reason) {
            ++left;
            tableRows::addError(m_report, bad.row, bad.line, std::move(reason));
        });
    m_report.taken = read.size() - left;
    return end();
}

bool vdmTable::intervals(std::vector<NORLEX_intervalValue>& out) {
    if (!open({{m_options.top, L"the top"},
               {m_options.bot, L"the bottom"},
               {m_options.velocity, L"the velocity", true}}))
        return false;
    const bool inTime = m_options.intervals == NORLEX_vdmTypeTime;
    const auto converted = [&](double given) {
        return inTime ? vdmPoints::storedTime(given, m_options.values) : absolute(given);
    };
    for (numberRow r; next(r);) {
        if (!r.cells[2]) {
            ++m_report.passedOver;
            continue;
        }
        const NORLEX_intervalValue one{converted(*r.cells[0]),
                                       converted(*r.cells[1]),
                                       ts::strconv::fromUtf8(numbers::shortest(*r.cells[2]))};
        if (*r.cells[2] <= 0.0)
            m_source.addError(m_report,
                              L"the velocity is " + one.value + L"; more than 0 m/s is expected");
        else if (!(one.bot < one.top))
            m_source.addError(m_report, L"the bottom is not below the top");
        else
            out.push_back(one);
    }
    m_report.taken = out.size();
    return end();
}

} // namespace

bool NORLEX_well::VDMimport_fromTable(const std::wstring& path,
                                      const NORLEX_VDMtableOptions& options,
                                      NORLEX_tableReport& report) {
    report = {};
    if (!m_ok)
        return refuse(L"the well is not open");
    transaction edit(m_db); // the altitude and the survey stay as they are read
    if (!edit.isOpen())
        return false;
    vdmTable table(path, options, *this, report);
    bool isStored = false;
    if (options.intervals) {
        std::vector<NORLEX_intervalValue> intervals;
        isStored = table.intervals(intervals) && VDMimport_fromModel(intervals, *options.intervals);
    } else {
        std::vector<vdm_data> points;
        isStored = table.points(points) && VDMimport_fromPoints(points);
    }
    isStored = isStored && edit.commit();
    if (!isStored)
        report.taken = 0;
    return isStored;
}

#include "wells/table_rows.h"

#include "platform/last_error.h"
#include "platform/numbers.h"
#include "tableReader.h"
#include "wells/record_depths.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tableRows {

namespace {

// The text of a column; blanks around unquoted cells are not part of it.
std::wstring cell(const std::vector<std::wstring>& cells, int column) {
    const auto index = static_cast<std::size_t>(column) - 1;
    return column > 0 && index < cells.size() ? cells[index] : std::wstring();
}

std::wstring noNumber(const std::wstring& text, int column) {
    return L"column " + std::to_wstring(column) + L": \"" + text
           + L"\" is no number; a number or nothing is expected";
}

} // namespace

std::optional<double> toNumber(const std::wstring& text) {
    if (std::count(text.begin(), text.end(), L',') != 1 || text.find(L'.') != std::wstring::npos)
        return numbers::toDouble(std::wstring_view(text));
    std::wstring pointed = text;
    std::replace(pointed.begin(), pointed.end(), L',', L'.');
    return numbers::toDouble(std::wstring_view(pointed));
}

parser::parser(const NORLEX_tableColumns& columns,
               const NORLEX_tableOptions& options,
               const std::vector<NORLEX_propField>& fields,
               bool arePoints)
    : m_arePoints(arePoints), m_skipWithoutDepth(options.skipWithoutDepth) {
    using record = NORLEX_geometryRecord;
    if (arePoints)
        m_depths = {{columns.depth, &record::top}, {columns.depthAbs, &record::topAbs}};
    else
        m_depths = {{columns.top, &record::top},
                    {columns.bot, &record::bot},
                    {columns.topAbs, &record::topAbs},
                    {columns.botAbs, &record::botAbs}};
    std::erase_if(m_depths, [](const auto& d) { return d.column == 0; });
    for (const auto& field : fields)
        m_fields.push_back({0, field.type == NORLEX_fieldTypeNumeric, field.name});
    for (const auto& [name, column] : columns.fields) {
        const auto field =
            std::find_if(m_fields.begin(), m_fields.end(), [&wanted = name](const auto& f) {
                return f.name == wanted;
            });
        if (field == m_fields.end())
            m_fault = L"the property has no field " + name;
        else if (column < 1)
            m_fault = L"columns are counted from 1, but the field " + name + L" is to be column "
                      + std::to_wstring(column);
        else
            field->column = column;
    }
    if (m_depths.empty())
        m_fault = arePoints ? L"no column holds the depth; depth or depth_abs is expected"
                            : L"no column holds the top and bottom; top and bot, or top_abs and "
                              L"bot_abs, are expected";
}

outcome parser::parse(const std::vector<std::wstring>& cells,
                      NORLEX_inclinometry* incl,
                      NORLEX_geometryRecord& record,
                      std::vector<std::wstring>& values,
                      std::wstring& reason) const {
    record = {};
    bool isAnyDepth = false;
    for (const auto& d : m_depths) {
        const std::wstring text(numbers::trimmed(cell(cells, d.column)));
        if (text.empty())
            continue;
        const auto depth = toNumber(text);
        if (!depth) {
            reason = noNumber(text, d.column);
            return outcome::bad;
        }
        record.*d.depth = *depth;
        isAnyDepth = true;
    }
    if (!isAnyDepth && m_skipWithoutDepth)
        return outcome::passedOver;
    values.resize(m_fields.size());
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        values[i] = cell(cells, m_fields[i].column);
        if (!m_fields[i].isNumeric || values[i].empty())
            continue;
        const auto number = toNumber(values[i]);
        if (!number || !std::isfinite(*number)) {
            reason = noNumber(values[i], m_fields[i].column);
            return outcome::bad;
        }
        std::replace(values[i].begin(), values[i].end(), L',', L'.');
    }
    reason = m_arePoints ? recordDepths::completePoint(record, incl)
                         : recordDepths::completeInterval(record, incl);
    return reason.empty() ? outcome::record : outcome::bad;
}

void addError(NORLEX_tableReport& report,
              std::uint64_t row,
              std::uint64_t line,
              std::wstring reason) {
    ++report.badCount;
    if (report.errors.size() < NORLEX_tableReport::longestList)
        report.errors.push_back({row, line, std::move(reason)});
}

bool refuseBadRows(const NORLEX_tableReport& report) {
    const auto& first = report.errors.front();
    std::wstring line = L"row " + std::to_wstring(first.row) + L" (line "
                        + std::to_wstring(first.line) + L"): " + first.reason;
    if (report.badCount > 1)
        line += L"; " + std::to_wstring(report.badCount - 1) + L" more rows are bad";
    return refuse(line + L"; nothing was written");
}

bool readAll(tableRW::tableReader& reader,
             const parser& rows,
             const NORLEX_tableOptions& options,
             NORLEX_inclinometry* incl,
             const recordSink& write,
             NORLEX_tableReport& report) {
    std::vector<std::wstring> cells;
    std::vector<std::wstring> values;
    NORLEX_geometryRecord record;
    std::wstring reason;
    bool isHeader = options.hasHeader;
    while (reader.next(cells)) {
        if (std::exchange(isHeader, false))
            continue;
        ++report.rows;
        switch (rows.parse(cells, incl, record, values, reason)) {
        case outcome::passedOver:
            ++report.passedOver;
            break;
        case outcome::bad:
            addError(report, reader.rowNumber(), reader.lineNumber(), reason);
            break;
        case outcome::record:
            if (!write(record, values))
                return false;
            ++report.taken;
        }
    }
    if (reader.isBroken())
        return false; // with the reader's own line
    return report.badCount == 0 || options.keepGoodRows || refuseBadRows(report);
}

} // namespace tableRows

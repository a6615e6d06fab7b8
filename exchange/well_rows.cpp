#include "exchange/well_rows.h"

#include "NORLEX_lastError.h"
#include "platform/last_error.h"
#include "platform/numbers.h"
#include "wells/names.h"
#include "wells/table_rows.h"

#include <algorithm>
#include <cmath>

namespace wellRows {

namespace {

std::wstring cell(const std::vector<std::wstring>& cells, int column) {
    const auto index = static_cast<std::size_t>(column) - 1; // of column 0: past every end
    return index < cells.size() ? std::wstring(::numbers::trimmed(cells[index])) : std::wstring();
}

const std::wstring& firstGiven(const std::wstring& cell, const std::wstring& constant) {
    return cell.empty() ? constant : cell;
}

} // namespace

bool parser::open(const tableSource& source) {
    if (!m_options.name.isSet())
        return refuse(L"a table of wells needs a column with their names");
    for (const auto& attribute : m_options.attributes) {
        if (attribute.key.empty() || !attribute.column.isSet())
            return refuse(L"an attribute of wells needs a name and a column");
        m_attributes.push_back(0);
        if (!source.header().find(
                attribute.column, L"the attribute " + attribute.key, m_attributes.back()))
            return false;
    }
    return source.header().find(m_options.name, L"name", m_name)
           && source.header().find(m_options.object, L"object", m_object)
           && source.header().find(m_options.field, L"field", m_field)
           && source.header().find(m_options.x, L"x", m_numbers[0].column)
           && source.header().find(m_options.y, L"y", m_numbers[1].column)
           && source.header().find(m_options.altitude, L"altitude", m_numbers[2].column)
           && source.header().find(m_options.bottom, L"bottom", m_numbers[3].column);
}

std::wstring parser::parse(const std::vector<std::wstring>& cells, row& out) const {
    out = {};
    out.well = names::plain({firstGiven(cell(cells, m_object), m_options.workObject),
                             firstGiven(cell(cells, m_field), m_options.fieldName),
                             cell(cells, m_name),
                             0});
    if (!names::areStorable(out.well)) {
        std::wstring reason = NORLEX_lastError();
        refuse({}); // a bad row is no failure yet
        return reason;
    }
    for (const auto& [column, value] : m_numbers) {
        const std::wstring text = cell(cells, column);
        if (text.empty())
            continue;
        out.values.*value = tableRows::toNumber(text);
        if (!(out.values.*value) || !std::isfinite(*(out.values.*value)))
            return L"column " + std::to_wstring(column) + L": \"" + text
                   + L"\" is no number; a number or nothing is expected";
    }
    for (const int column : m_attributes)
        out.attributes.push_back(cell(cells, column));
    return {};
}

} // namespace wellRows

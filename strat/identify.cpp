// Units by what people write: identification, ranges, and what contains them.
#include "platform/numbers.h"
#include "strat/index_expression.h"
#include "strat/table_content.h"

#include <algorithm>
#include <set>

namespace strategraphy {

// A name with a "-" or "+" in it is found where it is the whole text.
void statoTable::content::visitRuns(const std::wstring& text,
                                    const runVisitor& visit,
                                    const unknownVisitor& visitUnknown) const {
    const std::wstring_view whole = numbers::trimmed(std::wstring_view(text));
    if (const auto found = units.byText(std::wstring(whole))) {
        visit({*found});
        return;
    }
    std::vector<chart::unit> ends;
    const auto close = [&] {
        if (!ends.empty())
            visit(units.range(ends));
        ends.clear();
    };
    for (const auto& piece : indexExpression::split(indexExpression::withoutBraces(whole))) {
        const auto found = units.byText(piece.text);
        if (!found || !piece.isRange)
            close();
        if (found)
            ends.push_back(*found);
        else if (!piece.text.empty())
            visitUnknown(piece.text);
    }
    close();
}

void statoTable::content::addRelated(const element& unit,
                                     bool (*isWanted)(std::size_t own, std::size_t level),
                                     std::vector<element>& out) const {
    const auto of = units.byIndex(unit);
    if (!of)
        return;
    for (const chart::unit other : units.related(*of))
        if (isWanted(units.levelAt(*of), units.levelAt(other)))
            out.push_back(units.element(other));
}

void statoTable::identify(const std::wstring& text, std::vector<element>& units) const {
    std::vector<std::wstring> unknown;
    identify(text, units, unknown);
}

void statoTable::identify(const std::wstring& text,
                          std::vector<element>& units,
                          std::vector<std::wstring>& unknown) const {
    units.clear();
    unknown.clear();
    const chart& all = m_content->units;
    std::vector<bool> isTaken(all.unitCount());
    m_content->visitRuns(
        text,
        [&](const std::vector<chart::unit>& named) {
            for (const chart::unit u : named) {
                if (!isTaken[u])
                    units.push_back(all.element(u));
                isTaken[u] = true;
            }
        },
        [&](const std::wstring& piece) { unknown.push_back(piece); });
}

const element* statoTable::identifySingle(const std::wstring& text) const {
    const auto found = m_content->units.byText(text);
    return found ? &m_content->units.element(*found) : nullptr;
}

void statoTable::addRange(const element& first,
                          const element& second,
                          std::vector<element>& units) const {
    const chart& all = m_content->units;
    const auto from = all.byIndex(first);
    const auto to = all.byIndex(second);
    if (!from || !to)
        return;
    for (const chart::unit u : all.range({*from, *to}))
        if (std::find(units.begin(), units.end(), all.element(u)) == units.end())
            units.push_back(all.element(u));
}

std::wstring statoTable::breakBraces(const std::wstring& text) {
    return indexExpression::withoutBraces(text);
}

std::wstring
statoTable::getContaining(const std::wstring& text, NORLEX_taxonType level, bool asNames) const {
    const chart& all = m_content->units;
    const auto at = chart::levelOf(level);
    if (!at)
        return {};
    const auto& elements = all.elements(*at);
    const auto shown = [&](std::size_t position) {
        const element& e = elements[position];
        return asNames && !e.name.empty() ? e.name : e.index;
    };
    std::wstring out;
    std::set<std::wstring> parts;
    m_content->visitRuns(
        text,
        [&](const std::vector<chart::unit>& named) {
            std::vector<std::size_t> positions;
            for (const chart::unit u : named)
                if (const auto found = all.containing(u, *at))
                    positions.push_back(all.positionOf(*found));
            if (positions.empty())
                return;
            const auto [first, last] = std::minmax_element(positions.begin(), positions.end());
            const std::wstring part =
                *first == *last ? shown(*first) : shown(*first) + L"-" + shown(*last);
            if (parts.insert(part).second)
                out += (out.empty() ? L"" : L"+") + part;
        },
        [](const std::wstring&) {});
    return out;
}

} // namespace strategraphy

#include "strat/chart.h"

#include "platform/numbers.h"

#include <algorithm>
#include <utility>

using strategraphy::element;

namespace {

constexpr std::array<NORLEX_taxonType, chart::levelCount> types = {NORLEX_taxonAkrotema,
                                                                   NORLEX_taxonEonotema,
                                                                   NORLEX_taxonSubEonotema,
                                                                   NORLEX_taxonEratema,
                                                                   NORLEX_taxonSystem,
                                                                   NORLEX_taxonSeries,
                                                                   NORLEX_taxonSubSeries,
                                                                   NORLEX_taxonStage};

} // namespace

std::optional<std::size_t> chart::levelOf(NORLEX_taxonType type) {
    const auto* const found = std::find(types.begin(), types.end(), type);
    return found == types.end() ? std::nullopt
                                : std::optional(static_cast<std::size_t>(found - types.begin()));
}

void chart::build(const std::vector<strategraphy::raw_data>& rows) {
    for (const auto& fields : rows) {
        rowUnits row;
        for (std::size_t level = 0; level < levelCount; ++level)
            row[level] = addNewElement(level,
                                       numbers::trimmed(std::wstring_view(fields[2 * level])),
                                       numbers::trimmed(std::wstring_view(fields[2 * level + 1])));
        relate(row);
        m_rows.push_back(row);
    }
    sortRelations();
}

chart::unit
chart::addNewElement(std::size_t level, std::wstring_view index, std::wstring_view name) {
    if (index.empty())
        return none;
    const auto [found, isNew] = m_byIndex[level].try_emplace(std::wstring(index), m_units.size());
    const unit id = found->second;
    if (isNew) {
        m_units.push_back({level, m_elements[level].size(), m_rows.size(), 0, {}, {}});
        m_elements[level].push_back({std::wstring(name), found->first, types[level], {}});
        m_byText[level].try_emplace(found->first, id);
        if (!name.empty())
            m_byText[level].try_emplace(std::wstring(name), id);
    }
    m_units[id].lastRow = m_rows.size();
    return id;
}

void chart::relate(const rowUnits& row) {
    for (std::size_t upper = 0; upper < levelCount; ++upper)
        for (std::size_t lower = upper + 1; lower < levelCount && row[upper] != none; ++lower) {
            if (row[lower] == none)
                continue;
            m_units[row[upper]].isDivided[lower] = true;
            m_units[row[upper]].related.push_back(row[lower]);
            m_units[row[lower]].related.push_back(row[upper]);
        }
}

// A pair stands in many rows.
void chart::sortRelations() {
    for (auto& u : m_units) {
        std::sort(u.related.begin(), u.related.end(), [&](unit a, unit b) {
            return std::pair(levelAt(a), positionOf(a)) < std::pair(levelAt(b), positionOf(b));
        });
        u.related.erase(std::unique(u.related.begin(), u.related.end()), u.related.end());
        u.related.shrink_to_fit();
    }
    for (const auto& u : m_units)
        for (const unit other : u.related) {
            const auto& known = element(other);
            m_elements[u.level][u.position].related.push_back(
                {known.name, known.index, known.type, {}});
        }
}

const element& chart::element(unit of) const {
    return m_elements[m_units[of].level][m_units[of].position];
}

const std::vector<element>& chart::elements(std::size_t level) const {
    return m_elements[level];
}

std::optional<chart::unit> chart::byIndex(std::size_t level, const std::wstring& index) const {
    const auto found = m_byIndex[level].find(index);
    return found == m_byIndex[level].end() ? std::nullopt : std::optional(found->second);
}

std::optional<chart::unit> chart::byIndex(const strategraphy::element& like) const {
    const auto level = levelOf(like.type);
    return level ? byIndex(*level, like.index) : std::nullopt;
}

std::optional<chart::unit> chart::byText(const std::wstring& text) const {
    for (const auto& units : m_byText)
        if (const auto found = units.find(text); found != units.end())
            return found->second;
    return std::nullopt;
}

std::optional<chart::unit> chart::containing(unit of, std::size_t level) const {
    if (levelAt(of) == level)
        return of;
    if (levelAt(of) < level)
        return std::nullopt;
    const auto& units = related(of);
    const auto found =
        std::find_if(units.begin(), units.end(), [&](unit u) { return levelAt(u) == level; });
    return found == units.end() ? std::nullopt : std::optional(*found);
}

// What stands for a row at a level. Where the chart does not divide that far, it is the nearest
// unit above the level, and where it jumps over the level, the nearest one below. A unit above that
// is divided in other rows would name more than this row.
chart::unit chart::standIn(const rowUnits& row, std::size_t level) const {
    if (row[level] != none)
        return row[level];
    for (std::size_t above = level; above-- > 0;) {
        if (row[above] == none)
            continue;
        if (!m_units[row[above]].isDivided[level])
            return row[above];
        break;
    }
    for (std::size_t below = level + 1; below < levelCount; ++below)
        if (row[below] != none)
            return row[below];
    return none;
}

std::vector<chart::unit> chart::range(const std::vector<unit>& ends) const {
    std::size_t level = 0;
    std::size_t first = m_rows.size();
    for (const unit u : ends) {
        level = std::max(level, levelAt(u));
        first = std::min(first, m_units[u].firstRow);
    }
    // A unit of the level is taken by its first row alone, and one above it in its whole extent.
    std::size_t last = 0;
    for (const unit u : ends)
        last = std::max(last, levelAt(u) == level ? m_units[u].firstRow : m_units[u].lastRow);
    std::vector<unit> out;
    std::vector<bool> isTaken(m_units.size());
    for (std::size_t row = first; row <= last; ++row) {
        const unit u = standIn(m_rows[row], level);
        if (u == none || isTaken[u] || m_units[u].firstRow < first)
            continue;
        isTaken[u] = true;
        out.push_back(u);
    }
    return out;
}

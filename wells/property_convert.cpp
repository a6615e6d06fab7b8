// Intervals drawn between the points of a property.
#include "NORLEX_wellProperty.h"
#include "odbc_database.h"
#include "platform/last_error.h"
#include "platform/transaction.h"
#include "wells/names.h"
#include "wells/property_state.h"

#include <algorithm>
#include <numeric>

namespace {

// The positions of fields of `target` among those of `source`, by name.
constexpr std::size_t absent = static_cast<std::size_t>(-1);

std::vector<std::size_t> sourceOf(const std::vector<NORLEX_propField>& target,
                                  const std::vector<NORLEX_propField>& source) {
    std::vector<std::size_t> out;
    for (const auto& field : target) {
        const auto at = std::find_if(
            source.begin(), source.end(), [&](const auto& f) { return f.name == field.name; });
        out.push_back(at == source.end() ? absent : static_cast<std::size_t>(at - source.begin()));
    }
    return out;
}

// Positions of the records down the hole; of those at one depth the last one stands.
std::vector<std::size_t> downTheHole(const std::vector<NORLEX_geometryRecord>& records) {
    std::vector<std::size_t> order(records.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return records[a].top < records[b].top;
    });
    std::vector<std::size_t> out;
    for (const std::size_t i : order) {
        if (!out.empty() && records[out.back()].top == records[i].top)
            out.pop_back();
        out.push_back(i);
    }
    return out;
}

} // namespace

// Each point's values reach down to the next point; with a `bottom`, the last one's to there.
bool NORLEX_wellProperty::makeIntervals(const NORLEX_propDescription& result,
                                        NORLEX_dataType type,
                                        double bottom) {
    const auto points = getRecords();
    const auto order = downTheHole(points);
    if (order.empty())
        return refuse(L"the property " + names::shown(m_state->descr) + L" holds no records");
    if (bottom != NORLEX_unknownDepth && !(bottom > points[order.back()].top))
        return refuse(L"the bottom is not below the deepest record of "
                      + names::shown(m_state->descr));
    transaction edit(m_db);
    if (!edit.isOpen() || !create(m_db, m_state->wellId, type, result))
        return false;
    NORLEX_wellProperty made(
        m_db, getID(m_db, m_state->wellId, names::plain(result)), m_incl, m_vdm);
    if (!made.isOK())
        return false;
    // picks have no field rows: a border's name and group are the first two values
    const bool arePicks = m_state->type == NORLEX_dataTypeBorder;
    auto sources = sourceOf(made.getFields(), m_state->fields);
    for (std::size_t i = 0; arePicks && i < sources.size(); ++i)
        sources[i] = i < 2 ? i : absent;
    std::vector<NORLEX_bulkRow> rows;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const bool isLast = i + 1 == order.size();
        if (isLast && bottom == NORLEX_unknownDepth)
            break;
        NORLEX_bulkRow row;
        row.top = points[order[i]].top;
        row.topAbs = points[order[i]].topAbs;
        row.bot = isLast ? bottom : points[order[i + 1]].top;
        row.botAbs = isLast ? NORLEX_unknownDepth : points[order[i + 1]].topAbs;
        for (const std::size_t source : sources)
            row.values.push_back(source == absent ? std::wstring() : getValue(source, order[i]));
        rows.push_back(std::move(row));
    }
    return made.prepareBulk(rows) && edit.commit();
}

bool NORLEX_wellProperty::markerToColumn(const NORLEX_propDescription& column, double bottom) {
    if (!holds(geometryKind::points))
        return false;
    if (bottom == NORLEX_unknownDepth)
        return refuse(L"the bottom of the column is not known; a measured depth is expected");
    return makeIntervals(column, NORLEX_dataTypeColumn, bottom);
}

bool NORLEX_wellProperty::makeIntervalsFromBorders(const NORLEX_propDescription& intervals) {
    refresh();
    if (!m_state->ok || m_state->type != NORLEX_dataTypeBorder)
        return refuse(L"the property " + names::shown(m_state->descr)
                      + L" is not open or holds no borders");
    return makeIntervals(intervals, NORLEX_dataTypeInterval, NORLEX_unknownDepth);
}

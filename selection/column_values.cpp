#include "selection/column_values.h"

#include "NORLEX_logSample.h"

#include <algorithm>

void columnValues::addPoint(std::int64_t record, double depth, double value) {
    m_points.push_back({record, depth, depth, value, depth});
}

void columnValues::addInterval(std::int64_t record, double bottom, double top, double value) {
    const auto [low, high] = std::minmax(bottom, top);
    m_intervals.push_back({record, low, high, value, low});
}

void columnValues::arrange() {
    const auto isBefore = [](const entry& a, const entry& b) {
        return a.top != b.top ? a.top > b.top : a.record < b.record;
    };
    std::ranges::sort(m_points, isBefore);
    std::ranges::sort(m_intervals, isBefore);
    for (std::size_t i = 1; i < m_intervals.size(); ++i)
        m_intervals[i].lowest = std::min(m_intervals[i].lowest, m_intervals[i - 1].lowest);
}

double columnValues::at(double bottom, double top) const {
    const auto [low, high] = std::minmax(bottom, top);
    const auto point = std::ranges::lower_bound(m_points, high, std::greater<>(), &entry::top);
    if (point != m_points.end() && point->top >= low)
        return point->value;
    // The first interval that reaches down to the middle is the first whose `lowest` does.
    const double middle = low + (high - low) / 2;
    const auto interval =
        std::ranges::lower_bound(m_intervals, middle, std::greater<>(), &entry::lowest);
    return interval != m_intervals.end() && interval->top >= middle ? interval->value
                                                                    : NORLEX_missingValue;
}

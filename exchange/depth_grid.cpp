#include "exchange/depth_grid.h"

#include "platform/last_error.h"
#include "platform/numbers.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

constexpr double mostRows = 100'000'000.0; // a well of 10,000 km at 0.1 m

double roundedToCentimetre(double x) {
    return std::round(x * 100.0) / 100.0;
}

std::wstring text(double x) {
    const std::string digits = numbers::shortest(x);
    return {digits.begin(), digits.end()};
}

double between(double depth, double upper, double upperValue, double lower, double lowerValue) {
    const double value = (depth - upper) * (lowerValue - upperValue) / (lower - upper) + upperValue;
    return std::isfinite(value) ? value : NORLEX_missingValue; // neighbours too far apart
}

} // namespace

std::optional<depth_grid> depth_grid::of(const log_columns& logs) {
    const log_column* const leader = logs.empty() ? nullptr : &logs.front();
    if (leader == nullptr || leader->depths().size() < 2) {
        refuse(L"the first log has no two samples to take the depth step from");
        return std::nullopt;
    }
    depth_grid grid{NORLEX_missingValue, -NORLEX_missingValue, 0.0};
    for (const auto& log : logs) {
        if (log.depths().empty())
            continue;
        grid.top = std::min(grid.top, log.depths().front());
        grid.bottom = std::max(grid.bottom, log.depths().back());
    }
    grid.step = leader->depths()[1] - leader->depths()[0];
    if (grid.bottom > grid.top && grid.step < 0.0)
        grid.step = std::abs(grid.step);
    if (!std::isfinite(grid.top) || !std::isfinite(grid.bottom) || !std::isfinite(grid.step)) {
        refuse(L"the depths of the logs are not all numbers");
        return std::nullopt;
    }
    if (grid.step == 0.0) {
        refuse(L"the first two samples of the first log share the depth "
               + text(leader->depths()[0]) + L"; a depth step other than 0 is needed");
        return std::nullopt;
    }
    return grid;
}

depth_grid depth_grid::rounded() const {
    return {roundedToCentimetre(top), roundedToCentimetre(bottom), roundedToCentimetre(step)};
}

bool depth_grid::isWalkable() const {
    if (top >= bottom)
        return true; // one row or none
    const bool moves = step > 0.0 && top + step > top && bottom - step < bottom;
    if (moves && (bottom - top) / step < mostRows)
        return true;
    return refuse(L"depths from " + text(top) + L" to " + text(bottom) + L" in steps of "
                  + text(step) + L" are too many rows; at most 100000000 are written");
}

double grid_cursor::valueAt(double depth) {
    const auto depths = m_log->depths();
    const auto values = m_log->values();
    for (; m_at < depths.size(); ++m_at) {
        const double at = depths[m_at];
        if (std::abs(at - depth) < 0.0001)
            return values[m_at];
        if (at <= depth)
            continue;
        if (m_at == 0 || values[m_at] == NORLEX_missingValue
            || values[m_at - 1] == NORLEX_missingValue)
            return NORLEX_missingValue;
        return between(depth, depths[m_at - 1], values[m_at - 1], at, values[m_at]);
    }
    return NORLEX_missingValue;
}

#include "exchange/exact_rows.h"

#include "exchange/null_value.h"
#include "platform/last_error.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace {

bool isSameNumber(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool isFree(const log_columns& logs, double candidate) {
    return std::none_of(logs.begin(), logs.end(), [&](const log_column& log) {
        const auto values = log.values();
        return std::any_of(values.begin(), values.end(), [&](double value) {
            return value != NORLEX_missingValue && nullValue::is(value, candidate);
        });
    });
}

} // namespace

exact_rows::exact_rows(const log_columns& logs) : m_logs(&logs) {
    std::vector<const log_column*> owners; // the first log of each column
    for (const auto& log : logs) {
        const auto owner = std::find_if(owners.begin(), owners.end(), [&](const log_column* other) {
            return other->sharesDepths(log);
        });
        m_columnOf.push_back(static_cast<std::size_t>(owner - owners.begin()));
        if (owner != owners.end())
            continue;
        owners.push_back(&log);
        m_columns.push_back({log.depths()});
    }
}

bool exact_rows::next() {
    const column* shallowest = nullptr;
    for (const auto& one : m_columns)
        if (one.at < one.depths.size()
            && (shallowest == nullptr || one.depths[one.at] < shallowest->depths[shallowest->at]))
            shallowest = &one;
    if (shallowest == nullptr)
        return false;
    m_depth = shallowest->depths[shallowest->at];
    for (auto& one : m_columns) {
        one.inRow = one.at < one.depths.size() && isSameNumber(one.depths[one.at], m_depth);
        if (one.inRow)
            ++one.at;
    }
    return true;
}

std::optional<double> exact_rows::valueOf(std::size_t log) const {
    const column& its = m_columns[m_columnOf[log]];
    if (!its.inRow)
        return std::nullopt;
    return (*m_logs)[log].values()[its.at - 1];
}

std::optional<row_range> rangeOf(exact_rows rows) {
    if (!rows.next())
        return std::nullopt;
    row_range range{rows.depth(), rows.depth(), 0.0};
    double smallest = NORLEX_missingValue;
    double largest = 0.0;
    double count = 0.0;
    for (; rows.next(); ++count) {
        const double step = rows.depth() - range.bottom;
        smallest = std::min(smallest, step);
        largest = std::max(largest, step);
        range.bottom = rows.depth();
    }
    if (count > 0.0 && largest - smallest < 1e-6)
        range.step = std::round((range.bottom - range.top) / count * 1e6) / 1e6;
    return range;
}

std::optional<double> freeNullValue(const log_columns& logs, std::optional<double> preferred) {
    if (preferred && std::isfinite(*preferred) && isFree(logs, *preferred))
        return preferred;
    double candidate = -999.25;
    for (int nines = 3; nines < 12; ++nines, candidate = candidate * 10.0 - 6.75)
        if (isFree(logs, candidate))
            return candidate;
    refuse(L"no number is left that could stand for a missing value: the logs hold them all");
    return std::nullopt;
}

#include "derived/window_filter.h"

#include "derived/compensated_sum.h"
#include "derived/rank_set.h"
#include "derived/sample_order.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>

namespace windowFilter {

namespace {

// Windows are runs of samples from `first` to before `last`; both ends only move downwards.

class windowMean {
public:
    explicit windowMean(std::span<const double> values)
        : m_values(values), m_upper(values.size()) {}

    [[nodiscard]] double of(std::size_t first, std::size_t last) {
        for (; m_last < last; ++m_last)
            m_lower.add(m_values[m_last]);
        if (first >= m_turn)
            turn(first);
        return (m_upper[first] + m_lower.value()) / static_cast<double>(last - first);
    }

private:
    void turn(std::size_t first) {
        compensatedSum sum;
        for (std::size_t i = m_last; i-- > first;) {
            sum.add(m_values[i]);
            m_upper[i] = sum.value();
        }
        m_turn = m_last;
        m_lower = {};
    }

    std::span<const double> m_values;
    std::vector<double> m_upper; // from a sample to the turning point
    compensatedSum m_lower;      // from the turning point on
    std::size_t m_turn = 0;
    std::size_t m_last = 0;
};

class windowMedian {
public:
    explicit windowMedian(std::span<const double> values)
        : m_byRank(values.size()), m_ranks(values.size()), m_members(values.size()) {
        std::vector<std::pair<double, std::uint32_t>> order(values.size());
        for (std::uint32_t i = 0; i < order.size(); ++i)
            order[i] = {values[i], i};
        std::sort(order.begin(), order.end());
        for (std::uint32_t rank = 0; rank < order.size(); ++rank) {
            m_byRank[rank] = order[rank].first;
            m_ranks[order[rank].second] = rank;
        }
    }

    // A sample enters before any leaves, so the window is never empty.
    [[nodiscard]] double of(std::size_t first, std::size_t last) {
        for (; m_last < last; ++m_last)
            enter(m_ranks[m_last]);
        for (; m_first < first; ++m_first)
            leave(m_ranks[m_first]);
        const std::size_t count = last - first;
        for (; m_below > (count - 1) / 2; --m_below)
            m_middle = m_members.previous(m_middle);
        for (; m_below < (count - 1) / 2; ++m_below)
            m_middle = m_members.next(m_middle);
        const double lower = m_byRank[m_middle];
        return count % 2 != 0 ? lower : std::midpoint(lower, m_byRank[m_members.next(m_middle)]);
    }

private:
    void enter(std::size_t rank) {
        m_members.insert(rank);
        if (m_last == 0)
            m_middle = rank;
        else if (rank < m_middle)
            ++m_below;
    }

    void leave(std::size_t rank) {
        if (rank < m_middle)
            --m_below;
        else if (rank == m_middle && m_below > 0) {
            m_middle = m_members.previous(rank);
            --m_below;
        } else if (rank == m_middle)
            m_middle = m_members.next(rank);
        m_members.erase(rank);
    }

    std::vector<double> m_byRank;
    std::vector<std::uint32_t> m_ranks; // by sample
    rankSet m_members;
    std::size_t m_middle = 0; // a member, by rank
    std::size_t m_below = 0;  // members of smaller rank
    std::size_t m_first = 0;
    std::size_t m_last = 0;
};

template <typename Statistic>
void slide(std::span<const double> depths, double window, Statistic statistic, double* out) {
    const double reach = window / 2 + sampleOrder::sameDepth;
    std::size_t first = 0;
    std::size_t last = 0;
    for (const double depth : depths) {
        while (last < depths.size() && depths[last] - depth <= reach)
            ++last;
        while (depth - depths[first] > reach)
            ++first;
        *out++ = statistic.of(first, last);
    }
}

} // namespace

std::vector<NORLEX_logSample>
filtered(std::span<const NORLEX_logSample> samples, NORLEX_windowKind kind, double window) {
    std::vector<double> depths;
    std::vector<double> values;
    depths.reserve(samples.size());
    values.reserve(samples.size());
    for (const auto& sample : samples)
        if (!sampleOrder::isMissing(sample.value)) {
            depths.push_back(sample.depth);
            values.push_back(sample.value);
        }
    std::vector<double> results(values.size());
    if (kind == NORLEX_windowMedian)
        slide(depths, window, windowMedian(values), results.data());
    else
        slide(depths, window, windowMean(values), results.data());
    std::vector<NORLEX_logSample> out(samples.begin(), samples.end());
    auto result = results.begin();
    for (auto& sample : out)
        if (!sampleOrder::isMissing(sample.value))
            sample.value = *result++;
    return out;
}

} // namespace windowFilter

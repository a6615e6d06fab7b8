#include "trajectory/station_search.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

// fmin() answers its other argument where one is not a number.
stationSearch::stationSearch(std::vector<double> keys)
    : m_count(keys.size()), m_leaves(std::bit_ceil(m_count)),
      m_leastBelow(2 * m_leaves, std::numeric_limits<double>::infinity()) {
    std::ranges::copy(keys, m_leastBelow.begin() + static_cast<std::ptrdiff_t>(m_leaves));
    for (std::size_t node = m_leaves - 1; node > 0; --node)
        m_leastBelow[node] = std::fmin(m_leastBelow[2 * node], m_leastBelow[2 * node + 1]);
    for (std::size_t i = 1; i < m_count; ++i)
        keys[i] = std::fmin(keys[i - 1], keys[i]);
    m_leastUpTo = std::move(keys);
}

std::size_t stationSearch::find(std::size_t active, double target) const {
    const double key = m_leastBelow[m_leaves + active];
    if (key == target)
        return active;
    const std::size_t below =
        key < target ? firstBelow(target, active) : firstBelowAfter(active, target);
    // A target above station 0 belongs to station 0 too.
    return below == 0 ? 0 : below - 1;
}

// The least key of all stations up to one falls with the station, whatever the keys do, so it can
// be bisected; without a branch, as below.
std::size_t stationSearch::findFromTop(double target) const {
    const double* from = m_leastUpTo.data();
    for (std::size_t count = m_count; count > 1;) {
        const std::size_t half = count / 2;
        from += static_cast<std::size_t>(!(from[half] < target)) * half;
        count -= half;
    }
    return static_cast<std::size_t>(from - m_leastUpTo.data());
}

// The first station of all whose key is below `target`, as that of `known` is. In a run back up
// the hole it is `known` itself.
std::size_t stationSearch::firstBelow(double target, std::size_t known) const {
    if (known == 0 || !(m_leastUpTo[known - 1] < target))
        return known;
    return firstBelowIn(1, target);
}

// The first station after `station` whose key is below `target`; the count where there is none.
// The subtrees tried grow with the distance from `station`.
std::size_t stationSearch::firstBelowAfter(std::size_t station, double target) const {
    if (station + 1 == m_count) // where every look-up below the survey ends
        return m_count;
    std::size_t node = m_leaves + station;
    do {
        // The node to the right; after a right child, its parent's.
        node = (node >> (node & 1U)) + 1;
        if (std::has_single_bit(node)) // past the last one of its level
            return m_count;
    } while (!(m_leastBelow[node] < target));
    return firstBelowIn(node, target);
}

// The first one in the subtree of `node`, which holds one. Written without a branch on the keys:
// their outcomes cannot be predicted.
std::size_t stationSearch::firstBelowIn(std::size_t node, double target) const {
    while (node < m_leaves) {
        node *= 2;
        node += static_cast<std::size_t>(!(m_leastBelow[node] < target));
    }
    return node - m_leaves;
}

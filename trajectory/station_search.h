// Finds the station that a depth belongs to, in any survey and for any order of look-ups.
#pragma once

#include <cstddef>
#include <vector>

// The look-ups of a trajectory are defined by a scan: from the first station, or from the one
// after the active station, for the first that lies below the target; the answer is the station
// before it. Where the hole runs level or rises the stations are not in order, so that answer
// depends on where the scan starts, and no bisection of the stations gives it. This class gives
// exactly the scan's answer in logarithmic time, and at once for runs in depth order.
//
// A station's key is a number that falls down the hole: its absolute depth, or its measured depth
// negated. The points of a velocity-depth model, by depth or by time, are such stations too.
class stationSearch {
public:
    explicit stationSearch(std::vector<double> keys);

    // The station for `target`, searched from the station `active`. There must be a station.
    [[nodiscard]] std::size_t find(std::size_t active, double target) const;

    // The same by a scan from the first station, wherever the target lies: the one before the first
    // that is below it.
    [[nodiscard]] std::size_t findFromTop(double target) const;

private:
    [[nodiscard]] std::size_t firstBelow(double target, std::size_t known) const;
    [[nodiscard]] std::size_t firstBelowAfter(std::size_t station, double target) const;
    [[nodiscard]] std::size_t firstBelowIn(std::size_t node, double target) const;

    std::size_t m_count;
    // The least key of all stations up to each.
    std::vector<double> m_leastUpTo;
    // A complete binary tree of least keys: the root is node 1, the children of node i are 2i and
    // 2i + 1, station i is the leaf m_leaves + i. A key that is not a number is below no target,
    // as in a comparison.
    std::size_t m_leaves;
    std::vector<double> m_leastBelow;
};

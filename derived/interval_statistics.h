// A statistic of a log within intervals.
#pragma once

#include "NORLEX_derivedData.h"
#include "NORLEX_logSample.h"
#include "derived/depth_pieces.h"

#include <span>
#include <vector>

namespace intervalStatistics {

// One result for each interval; missing where it holds no value, and for a deviation where it holds
// fewer than two. `samples` by increasing depth; the intervals in any order. A sample at a bound
// belongs to the interval, and so to both of two that adjoin there.
//
// The mean is weighted by the part of what a sample stands for (half-way to its neighbours) that is
// inside the interval; where no sample has such a part, it is that of the values. A deviation is
// taken from the mean of the values: G. Forsythe, M. Malcolm, C. Moler, Computer Methods for
// Mathematical Computations (1977), in two passes.
//
// Takes a binary search for each interval, and reads the samples within it.
[[nodiscard]] std::vector<double> of(std::span<const NORLEX_logSample> samples,
                                     std::span<const depthSpan> intervals,
                                     NORLEX_statistic statistic);

} // namespace intervalStatistics

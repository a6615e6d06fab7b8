// Mean and median in a window that slides down a log.
//
// Mean: the sum of a window is that of the part above a turning point, added upwards from there
// once, and that of the part below, added as the window grows; when the window's upper end passes
// the point, the point moves to its lower end. So no value is ever subtracted, and one that has
// left the window leaves no rounding behind (the two-stack queue; K. Tangwongsan, M. Hirzel,
// S. Schneider, Low-Latency Sliding-Window Aggregation in Worst-Case Constant Time, DEBS 2017).
// Time grows with the samples alone.
//
// Median: all values are ranked by one sort, and the window is a set of ranks in which the middle
// one moves to a neighbour as samples enter and leave (compare J. Suomela, Median Filtering is
// Equivalent to Sorting, 2014, arXiv:1406.1717). After the sort, time grows with the samples alone.
#pragma once

#include "NORLEX_derivedData.h"
#include "NORLEX_logSample.h"

#include <span>
#include <vector>

namespace windowFilter {

// `samples` by increasing depth, finite or missing. Samples up to half of `window` metres above and
// below belong to a sample's window, those at just that distance included. A missing sample stays
// missing and takes no part. Of an even number the median is the mean of the middle two.
[[nodiscard]] std::vector<NORLEX_logSample>
filtered(std::span<const NORLEX_logSample> samples, NORLEX_windowKind kind, double window);

} // namespace windowFilter

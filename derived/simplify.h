// The samples of a log that straight lines through them need to stay close to all the others.
//
// U. Ramer, An iterative procedure for the polygonal approximation of plane curves, Computer
// Graphics and Image Processing 1 (1972), 244-256; D. Douglas, T. Peucker, Algorithms for the
// reduction of the number of points required to represent a digitized line or its caricature, The
// Canadian Cartographer 10 (1973), 112-122. The distance is taken along the value axis, which makes
// the farthest sample a question to the hulls of the log: n samples take O(n log² n) at worst,
// where a search through all of them takes O(n²) on logs whose amplitude grows steadily.
#pragma once

#include "NORLEX_logSample.h"

#include <span>
#include <vector>

namespace simplify {

// `samples` by increasing depth, finite or missing. The lines break at missing samples, of which
// the first and the last of a row stay, and between samples of one depth; the ends of each piece
// stay.
[[nodiscard]] std::vector<NORLEX_logSample> simplified(std::span<const NORLEX_logSample> samples,
                                                       double tolerance);

} // namespace simplify

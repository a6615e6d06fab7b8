// Stretches of the hole where values lie within bounds, both included.
#pragma once

#include "NORLEX_logSample.h"
#include "derived/depth_pieces.h"

#include <span>
#include <vector>

namespace valueIntervals {

// Of a log, on the straight lines between its samples (by increasing depth); a missing sample ends
// a stretch. Where the lines only touch a bound the stretch has no thickness.
[[nodiscard]] std::vector<depthSpan>
ofLog(std::span<const NORLEX_logSample> samples, double from, double to);

// The pieces whose values are within.
[[nodiscard]] std::vector<depthSpan>
ofPieces(std::span<const depthPiece> pieces, double from, double to);

// Adjoining stretches, and those no more than `maxGap` apart, become one; what is then thinner than
// `minThickness`, or than the centimetre that depths are stored with, is left out.
[[nodiscard]] std::vector<depthSpan>
united(std::vector<depthSpan> spans, double maxGap, double minThickness);

} // namespace valueIntervals

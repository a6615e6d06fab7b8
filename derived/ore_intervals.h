// Ore drawn from grades: stretches that are worth taking out together.
#pragma once

#include "NORLEX_wellProperty.h"
#include "derived/depth_pieces.h"

#include <span>
#include <vector>

namespace oreIntervals {

struct ore {
    depthSpan span;
    double mean = 0.0; // weighted by thickness
};

// Pieces by increasing top. Those at or above the cutoff that adjoin become one ore; then, from
// above downwards, an ore takes in the waste below it and the next ore where the waste is no
// thicker than allowed and the mean of all three stays at or above the cutoff. A stretch without a
// value ends an ore whatever its thickness: what was not assayed cannot be taken for waste.
[[nodiscard]] std::vector<ore> drawn(std::span<const depthPiece> pieces,
                                     const NORLEX_oreOptions& options);

} // namespace oreIntervals

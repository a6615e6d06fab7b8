// Stretches of the hole, measured depths in metres, and stretches with a value.
#pragma once

#include "NORLEX_logSample.h"

#include <algorithm>
#include <span>
#include <vector>

struct depthSpan {
    double top = 0.0;
    double bot = 0.0;

    [[nodiscard]] double thickness() const { return bot - top; }
    [[nodiscard]] depthSpan within(const depthSpan& other) const { // not empty: bot >= top
        return {std::max(top, other.top), std::min(bot, other.bot)};
    }
};

struct depthPiece {
    depthSpan span;
    double value = NORLEX_missingValue;
};

namespace depthPieces {

// What each sample stands for: half-way to its neighbours above and below, missing ones included.
// The first one does not reach upwards, nor the last one downwards. `samples` by increasing depth.
[[nodiscard]] depthSpan reachOf(std::span<const NORLEX_logSample> samples, std::size_t index);
[[nodiscard]] std::vector<depthPiece> ofSamples(std::span<const NORLEX_logSample> samples);

} // namespace depthPieces

#include "derived/depth_pieces.h"

#include <numeric>

namespace depthPieces {

depthSpan reachOf(std::span<const NORLEX_logSample> samples, std::size_t index) {
    const double depth = samples[index].depth;
    const double above = index > 0 ? samples[index - 1].depth : depth;
    const double below = index + 1 < samples.size() ? samples[index + 1].depth : depth;
    return {std::midpoint(above, depth), std::midpoint(depth, below)};
}

std::vector<depthPiece> ofSamples(std::span<const NORLEX_logSample> samples) {
    std::vector<depthPiece> out;
    out.reserve(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i)
        out.push_back({reachOf(samples, i), samples[i].value});
    return out;
}

} // namespace depthPieces

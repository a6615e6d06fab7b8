#include "derived/ore_intervals.h"

#include "derived/sample_order.h"

#include <algorithm>
#include <cmath>

using sampleOrder::sameDepth;

namespace oreIntervals {

namespace {

// Pieces of one kind that adjoin.
struct body {
    depthSpan span;
    double thickness = 0.0;
    double content = 0.0; // values times thicknesses
    bool isOre = false;
    bool adjoins = false; // the body above

    void add(const body& other) {
        span.bot = std::max(span.bot, other.span.bot);
        thickness += other.thickness;
        content += other.content;
    }
    [[nodiscard]] double mean() const { return content / thickness; }
};

std::vector<body> bodiesOf(std::span<const depthPiece> pieces, double cutoff) {
    std::vector<body> out;
    for (const auto& piece : pieces) {
        const double thickness = piece.span.thickness();
        if (sampleOrder::isMissing(piece.value) || thickness <= 0.0)
            continue;
        body next{piece.span, thickness, piece.value * thickness, piece.value >= cutoff, false};
        next.adjoins = !out.empty() && next.span.top <= out.back().span.bot + sameDepth;
        if (next.adjoins && next.isOre == out.back().isOre)
            out.back().add(next);
        else
            out.push_back(next);
    }
    return out;
}

} // namespace

std::vector<ore> drawn(std::span<const depthPiece> pieces, const NORLEX_oreOptions& options) {
    const auto bodies = bodiesOf(pieces, options.cutoff);
    // products and quotients of decimals are not exact
    const double enough = options.cutoff - std::abs(options.cutoff) * 1e-12;
    std::vector<body> whole;
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        const body& next = bodies[i];
        if (!next.isOre)
            continue;
        if (!whole.empty() && i > 0 && next.adjoins && !bodies[i - 1].isOre && bodies[i - 1].adjoins
            && bodies[i - 1].thickness <= options.maxWaste + sameDepth) {
            body all = whole.back();
            all.add(bodies[i - 1]);
            all.add(next);
            if (all.mean() >= enough) {
                whole.back() = all;
                continue;
            }
        }
        whole.push_back(next);
    }
    std::vector<ore> out;
    for (const auto& one : whole)
        if (one.span.thickness() >= options.minThickness - sameDepth)
            out.push_back({one.span, one.mean()});
    return out;
}

} // namespace oreIntervals

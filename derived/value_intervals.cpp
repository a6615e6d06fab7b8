#include "derived/value_intervals.h"

#include "derived/sample_order.h"

#include <algorithm>
#include <cmath>
#include <utility>

using sampleOrder::isMissing;
using sampleOrder::sameDepth;

namespace valueIntervals {

namespace {

constexpr double thinnestStored = 0.01;

void append(std::vector<depthSpan>& out, const depthSpan& next) {
    if (!out.empty() && next.top == out.back().bot)
        out.back().bot = next.bot;
    else
        out.push_back(next);
}

// The part of the line between two samples that is within the bounds.
void appendLine(const NORLEX_logSample& upper,
                const NORLEX_logSample& lower,
                double from,
                double to,
                std::vector<depthSpan>& out) {
    double first = 0.0; // shares of the way from the upper sample to the lower one
    double last = 1.0;
    if (upper.value != lower.value) {
        const double rise = lower.value - upper.value;
        auto [in, past] = std::pair((from - upper.value) / rise, (to - upper.value) / rise);
        if (rise < 0.0)
            std::swap(in, past);
        first = std::max(in, 0.0);
        last = std::min(past, 1.0);
    } else if (upper.value < from || upper.value > to)
        return;
    if (first <= last)
        append(out,
               {std::lerp(upper.depth, lower.depth, first),
                std::lerp(upper.depth, lower.depth, last)});
}

} // namespace

std::vector<depthSpan> ofLog(std::span<const NORLEX_logSample> samples, double from, double to) {
    std::vector<depthSpan> out;
    for (std::size_t i = 1; i < samples.size(); ++i)
        if (!isMissing(samples[i - 1].value) && !isMissing(samples[i].value))
            appendLine(samples[i - 1], samples[i], from, to, out);
    return out;
}

std::vector<depthSpan> ofPieces(std::span<const depthPiece> pieces, double from, double to) {
    std::vector<depthSpan> out;
    for (const auto& piece : pieces)
        if (!isMissing(piece.value) && piece.value >= from && piece.value <= to)
            out.push_back(piece.span);
    return out;
}

std::vector<depthSpan> united(std::vector<depthSpan> spans, double maxGap, double minThickness) {
    std::stable_sort(
        spans.begin(), spans.end(), [](const auto& a, const auto& b) { return a.top < b.top; });
    std::vector<depthSpan> out;
    for (const auto& next : spans)
        if (!out.empty() && next.top - out.back().bot <= maxGap + sameDepth)
            out.back().bot = std::max(out.back().bot, next.bot);
        else
            out.push_back(next);
    const double thinnest = std::max(minThickness, thinnestStored) - sameDepth;
    std::erase_if(out, [&](const auto& span) { return span.thickness() < thinnest; });
    return out;
}

} // namespace valueIntervals

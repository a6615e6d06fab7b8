#include "derived/step_log.h"

#include "derived/sample_order.h"
#include "derived/straight_line.h"

#include <algorithm>
#include <cmath>

using sampleOrder::sameDepth;

namespace stepLog {

namespace {

constexpr double perMetre = 1e6; // steps are told to a micrometre

// The nearest double of the decimal number, where the step is one: 3 * 0.1 is not 0.3.
double multiple(double count, double step) {
    const double micrometres = std::round(step * perMetre);
    const bool isDecimal = std::abs(step * perMetre - micrometres) < 1e-6 && micrometres >= 1.0;
    return isDecimal ? count * micrometres / perMetre : count * step;
}

} // namespace

std::optional<std::vector<double>> depths(double top, double bottom, double step) {
    const double first = std::ceil((top - sameDepth) / step);
    const double last = std::floor((bottom + sameDepth) / step);
    if (!(last - first < mostSamples))
        return std::nullopt;
    const auto count = static_cast<std::size_t>(std::max(last - first + 1.0, 0.0));
    std::vector<double> out;
    out.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        out.push_back(multiple(first + static_cast<double>(i), step));
    return out;
}

std::vector<double> ofPieces(std::span<const depthPiece> pieces, std::span<const double> depths) {
    std::vector<double> out;
    out.reserve(depths.size());
    std::size_t at = 0; // the uppermost piece that is not wholly above the depth
    for (const double depth : depths) {
        while (at < pieces.size() && pieces[at].span.bot < depth - sameDepth)
            ++at;
        const bool holds = at < pieces.size() && pieces[at].span.top <= depth + sameDepth;
        out.push_back(holds ? pieces[at].value : NORLEX_missingValue);
    }
    return out;
}

std::vector<double> ofSamples(std::span<const NORLEX_logSample> samples,
                              std::span<const double> depths) {
    straightLine::reader line(samples);
    std::vector<double> out;
    out.reserve(depths.size());
    for (const double depth : depths)
        out.push_back(line.valueAt(depth));
    return out;
}

} // namespace stepLog

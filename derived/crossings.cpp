#include "derived/crossings.h"

#include "derived/sample_order.h"

#include <algorithm>
#include <cmath>

namespace crossings {

namespace {

// Where the line between samples on different sides is at the cutoff.
double depthBetween(const NORLEX_logSample& upper, const NORLEX_logSample& lower, double cutoff) {
    const double share = (cutoff - upper.value) / (lower.value - upper.value);
    return std::lerp(upper.depth, lower.depth, share);
}

} // namespace

std::vector<crossing>
found(std::span<const NORLEX_logSample> samples, double cutoff, NORLEX_crossing which) {
    std::vector<crossing> out;
    const NORLEX_logSample* away = nullptr; // the last sample that is not at the cutoff
    const NORLEX_logSample* at = nullptr;   // the first one behind it that is
    for (const auto& sample : samples) {
        if (sampleOrder::isMissing(sample.value)) {
            away = at = nullptr;
        } else if (sample.value == cutoff) {
            at = at == nullptr ? &sample : at;
        } else {
            const bool rises = sample.value > cutoff;
            if (away != nullptr && (away->value > cutoff) != rises
                && which != (rises ? NORLEX_crossingFalling : NORLEX_crossingRising))
                out.push_back(
                    {at != nullptr ? at->depth : depthBetween(*away, sample, cutoff), rises});
            away = &sample;
            at = nullptr;
        }
    }
    return out;
}

} // namespace crossings

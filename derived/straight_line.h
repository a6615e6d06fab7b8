// Values of a log between its samples, on straight lines.
#pragma once

#include "NORLEX_logSample.h"

#include <cstddef>
#include <span>

namespace straightLine {

// At a depth between those of two samples that have values.
[[nodiscard]] double at(double depth, const NORLEX_logSample& upper, const NORLEX_logSample& lower);

// Asked after at depths that only grow. Missing above the first sample, below the last one, and
// beside a missing one.
class reader {
public:
    // Samples by increasing depth; borrowed.
    explicit reader(std::span<const NORLEX_logSample> samples) : m_samples(samples) {}

    [[nodiscard]] double valueAt(double depth);

private:
    std::span<const NORLEX_logSample> m_samples;
    std::size_t m_at = 0; // no sample above it is at the depth last asked after, or below
};

} // namespace straightLine

// What the computations on logs take for granted: the order of samples, and what counts as one
// depth.
#pragma once

#include "NORLEX_logSample.h"

#include <vector>

namespace sampleOrder {

// Depths in metres that are no further apart are one: 0.1 is no double, so ten steps of it are not
// a metre.
inline constexpr double sameDepth = 1e-6;

[[nodiscard]] constexpr bool isMissing(double value) {
    return value == NORLEX_missingValue;
}

// By increasing measured depth. Samples of one depth stay in the order they have.
void sort(std::vector<NORLEX_logSample>& samples);

} // namespace sampleOrder

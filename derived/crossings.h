// Where a log passes a cutoff.
#pragma once

#include "NORLEX_derivedData.h"
#include "NORLEX_logSample.h"

#include <span>
#include <vector>

namespace crossings {

struct crossing {
    double depth = 0.0;
    bool rises = false; // downwards along the hole
};

// `samples` by increasing depth. The depth is that of the straight line between the samples on the
// two sides; where samples stand at the cutoff itself, that of the first of them, once. A log that
// reaches the cutoff and turns back does not pass it, nor does one that goes on behind a missing
// sample.
[[nodiscard]] std::vector<crossing>
found(std::span<const NORLEX_logSample> samples, double cutoff, NORLEX_crossing which);

} // namespace crossings

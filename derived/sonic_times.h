// Two-way times from interval transit times.
#pragma once

#include "NORLEX_logSample.h"
#include "NORLEX_vdm.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sonicTimes {

// Metres of the length in a unit of interval transit time, "us/ft" or "us/m" in the spellings of
// LAS files; nothing for any other.
[[nodiscard]] std::optional<double> lengthOf(const std::wstring& units);

struct request {
    double tieDepth = 0.0; // absolute
    double tieTime = 0.0;  // as a model holds it
    double length = 1.0;   // metres that the transit times are of
    double maxGap = 0.0;
    double step = 0.0;
};

// The tie point and those below it. Between two samples the transit time changes evenly; across
// samples without a value it is that of the last one above. Where the hole runs level or rises
// there is no way down: such samples are passed over. Nothing, with the last error set, where the
// log does not reach the tie point or has no values for longer than `maxGap`.
[[nodiscard]] std::optional<std::vector<vdm_data>>
integrated(std::span<const NORLEX_logSample> samples, const request& how);

} // namespace sonicTimes

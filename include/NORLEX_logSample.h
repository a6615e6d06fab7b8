// One sample of a well log.
#pragma once

#include <limits>

// A missing value, in memory and in the sample file.
inline constexpr double NORLEX_missingValue = std::numeric_limits<double>::max();

// A depth that is not known, in either depth system.
inline constexpr double NORLEX_unknownDepth = 2000000.0;

// The layout is that of the sample file.
struct NORLEX_logSample {
    double depth = 0.0;    // measured depth
    double depthAbs = 0.0; // absolute depth
    double value = NORLEX_missingValue;
};

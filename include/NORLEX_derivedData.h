// Choices of the operations that make data from data.
#pragma once

#include <limits>

enum NORLEX_windowKind : int {
    NORLEX_windowMean = 0, // moving average
    NORLEX_windowMedian = 1,
};

// Which way a log passes a cutoff, downwards along the hole.
enum NORLEX_crossing : int {
    NORLEX_crossingBoth = 0,
    NORLEX_crossingRising = 1,
    NORLEX_crossingFalling = 2,
};

// Whose samples stand where two runs cover the same depths.
enum NORLEX_lasOverlap : int {
    NORLEX_lasOverlapUpper = 0, // of the run that begins higher
    NORLEX_lasOverlapLower = 1,
    NORLEX_lasOverlapMean = 2, // the mean of both, at the depths of the upper run
};

enum NORLEX_statistic : int {
    NORLEX_statisticMean = 0, // weighted by the thickness that each sample stands for
    NORLEX_statisticMedian = 1,
    NORLEX_statisticMin = 2,
    NORLEX_statisticMax = 3,
    NORLEX_statisticSum = 4,
    NORLEX_statisticCount = 5,
    NORLEX_statisticDeviation = 6, // standard deviation of the sample values, n - 1
};

// Values from `from` up to and including `to` count; the depths between a sample inside and one
// outside are divided where the straight line crosses the bound.
struct NORLEX_intervalOptions {
    double from = std::numeric_limits<double>::lowest();
    double to = std::numeric_limits<double>::max();
    double minThickness = 0.0; // thinner intervals are left out, in metres of measured depth
    double maxGap = 0.0;       // intervals no further apart become one, before that
};

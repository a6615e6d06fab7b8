// Points of velocity-depth models made of what people give.
#pragma once

#include "NORLEX_vdm.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vdmPoints {

// Tops and bottoms as a model has them: absolute depths, or times that fall.
struct interval {
    double top = 0.0;
    double bot = 0.0;
    double velocity = 0.0; // metres a second; intervals without one, 0 or less, are skipped
};

// From the altitude, at the time of the first top, each interval's thickness below the one before
// it: one that is skipped does not move what follows.
[[nodiscard]] std::vector<vdm_data> ofTimeIntervals(double altitude,
                                                    std::span<const interval> intervals);
// From the altitude at time 0, each velocity down to the bottom of its interval. Intervals that end
// above the altitude are skipped.
[[nodiscard]] std::vector<vdm_data> ofDepthIntervals(double altitude,
                                                     std::span<const interval> intervals);

// Two-way milliseconds with the sign of a model, of a time that grows downwards.
[[nodiscard]] double storedTime(double given, const NORLEX_VDMcreateOptions& options);

// A point with the place that it was read from.
struct sourced {
    double depth = 0.0;
    double time = 0.0; // as stored
    std::uint64_t row = 0;
    std::uint64_t line = 0;
};
using fault = std::function<void(const sourced&, std::wstring)>;

// The points from above downwards, without repeated ones. One that lies above the well head, or
// whose time does not fall below that of the point above it, the head at time 0 being the first,
// is left out and told.
[[nodiscard]] std::vector<vdm_data>
arranged(std::vector<sourced> points, double altitude, const fault& tell);

} // namespace vdmPoints

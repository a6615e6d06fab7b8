// A log at even steps of values that are not.
#pragma once

#include "NORLEX_logSample.h"
#include "derived/depth_pieces.h"

#include <optional>
#include <span>
#include <vector>

namespace stepLog {

inline constexpr double mostSamples = 10'000'000.0; // a well of 10 km at a millimetre

// The multiples of `step` from `top` to `bottom`, both included; nothing when there are more than
// `mostSamples`.
[[nodiscard]] std::optional<std::vector<double>> depths(double top, double bottom, double step);

// The value at each depth, of which none is above the one before it.
// Pieces with values, by increasing top: where several hold a depth, or meet at it, the upper
// one's.
[[nodiscard]] std::vector<double> ofPieces(std::span<const depthPiece> pieces,
                                           std::span<const double> depths);
// Samples with values, by increasing depth: on the straight line between them.
[[nodiscard]] std::vector<double> ofSamples(std::span<const NORLEX_logSample> samples,
                                            std::span<const double> depths);

} // namespace stepLog

// The order in which samples are stored: by increasing depth.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace depthOrder {

// Whether the depths never fall.
[[nodiscard]] bool isIncreasing(std::span<const double> depths);

// Where each sample of the sorted log comes from: reversed where the depths strictly fall, else a
// stable sort, so that samples of one depth stay in the order they came in.
[[nodiscard]] std::vector<std::uint32_t> sorted(std::span<const double> depths);

} // namespace depthOrder

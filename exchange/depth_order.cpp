#include "exchange/depth_order.h"

#include <algorithm>
#include <functional>
#include <numeric>

namespace depthOrder {

bool isIncreasing(std::span<const double> depths) {
    return std::is_sorted(depths.begin(), depths.end());
}

std::vector<std::uint32_t> sorted(std::span<const double> depths) {
    std::vector<std::uint32_t> rows(depths.size());
    std::iota(rows.begin(), rows.end(), std::uint32_t{0});
    const bool falls =
        std::adjacent_find(depths.begin(), depths.end(), std::less_equal<>()) == depths.end();
    if (falls)
        std::reverse(rows.begin(), rows.end());
    else
        std::stable_sort(rows.begin(), rows.end(), [&](std::uint32_t a, std::uint32_t b) {
            return depths[a] < depths[b];
        });
    return rows;
}

} // namespace depthOrder

#include "derived/sample_order.h"

#include <algorithm>

namespace sampleOrder {

void sort(std::vector<NORLEX_logSample>& samples) {
    const auto isAbove = [](const auto& a, const auto& b) { return a.depth < b.depth; };
    if (!std::is_sorted(samples.begin(), samples.end(), isAbove))
        std::stable_sort(samples.begin(), samples.end(), isAbove);
}

} // namespace sampleOrder

#include "derived/splice.h"

#include "derived/sample_order.h"
#include "derived/straight_line.h"

#include <algorithm>
#include <iterator>
#include <numeric>

using sampleOrder::isMissing;
using sampleOrder::sameDepth;

namespace logSplice {

namespace {

using run = std::vector<NORLEX_logSample>;

void trim(run& samples) {
    const auto hasValue = [](const auto& sample) { return !isMissing(sample.value); };
    const auto last = std::find_if(samples.rbegin(), samples.rend(), hasValue).base();
    samples.erase(last, samples.end());
    samples.erase(samples.begin(), std::find_if(samples.begin(), samples.end(), hasValue));
}

void average(run& upper, const run& lower) {
    straightLine::reader other(lower);
    for (auto& sample : upper) {
        const double value = other.valueAt(sample.depth);
        if (isMissing(sample.value))
            sample.value = value;
        else if (!isMissing(value))
            sample.value = std::midpoint(sample.value, value);
    }
}

// `upper` begins no lower than `lower` does; neither is empty.
run joinedPair(run upper, const run& lower, NORLEX_lasOverlap overlap) {
    const double top = lower.front().depth - sameDepth;
    const auto isAbove = [](const auto& sample, double depth) { return sample.depth < depth; };
    const auto isBelow = [](double depth, const auto& sample) { return depth < sample.depth; };
    if (overlap == NORLEX_lasOverlapLower) {
        const auto first = std::lower_bound(upper.begin(), upper.end(), top, isAbove);
        const auto last =
            std::upper_bound(first, upper.end(), lower.back().depth + sameDepth, isBelow);
        upper.insert(upper.erase(first, last), lower.begin(), lower.end());
        return upper;
    }
    if (overlap == NORLEX_lasOverlapMean)
        average(upper, lower);
    const double bottom = upper.back().depth + sameDepth;
    upper.insert(
        upper.end(), std::upper_bound(lower.begin(), lower.end(), bottom, isBelow), lower.end());
    return upper;
}

} // namespace

std::vector<NORLEX_logSample> joined(std::vector<run> runs, NORLEX_lasOverlap overlap) {
    for (auto& samples : runs)
        trim(samples);
    std::erase_if(runs, [](const run& samples) { return samples.empty(); });
    std::stable_sort(runs.begin(), runs.end(), [](const run& a, const run& b) {
        return a.front().depth < b.front().depth;
    });
    run out = runs.empty() ? run() : std::move(runs.front());
    for (std::size_t i = 1; i < runs.size(); ++i)
        out = joinedPair(std::move(out), runs[i], overlap);
    return out;
}

} // namespace logSplice

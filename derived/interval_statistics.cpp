#include "derived/interval_statistics.h"

#include "derived/compensated_sum.h"
#include "derived/sample_order.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using sampleOrder::sameDepth;

namespace intervalStatistics {

namespace {

struct valuedSample {
    double depth = 0.0;
    double value = 0.0;
    depthSpan reach;
};
using values = std::span<const valuedSample>;

std::vector<valuedSample> valuedOf(std::span<const NORLEX_logSample> samples) {
    std::vector<valuedSample> out;
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (!sampleOrder::isMissing(samples[i].value))
            out.push_back({samples[i].depth, samples[i].value, depthPieces::reachOf(samples, i)});
    return out;
}

double sumOf(values inside) {
    compensatedSum sum;
    for (const auto& sample : inside)
        sum.add(sample.value);
    return sum.value();
}

double meanOf(values inside) {
    return sumOf(inside) / static_cast<double>(inside.size());
}

double weightedMean(values inside, const depthSpan& interval) {
    compensatedSum sum;
    compensatedSum weights;
    for (const auto& sample : inside) {
        const double weight = std::max(sample.reach.within(interval).thickness(), 0.0);
        sum.add(weight * sample.value);
        weights.add(weight);
    }
    return weights.value() > 0.0 ? sum.value() / weights.value() : meanOf(inside);
}

double deviation(values inside) {
    if (inside.size() < 2)
        return NORLEX_missingValue;
    const double mean = meanOf(inside);
    compensatedSum squares;
    for (const auto& sample : inside)
        squares.add((sample.value - mean) * (sample.value - mean));
    return std::sqrt(squares.value() / static_cast<double>(inside.size() - 1));
}

double median(values inside) {
    std::vector<double> sorted;
    sorted.reserve(inside.size());
    for (const auto& sample : inside)
        sorted.push_back(sample.value);
    const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    if (sorted.size() % 2 != 0)
        return *middle;
    return std::midpoint(*std::max_element(sorted.begin(), middle), *middle);
}

double statisticOf(values inside, const depthSpan& interval, NORLEX_statistic statistic) {
    const auto isSmaller = [](const auto& a, const auto& b) { return a.value < b.value; };
    switch (statistic) {
    case NORLEX_statisticMean:
        return weightedMean(inside, interval);
    case NORLEX_statisticMedian:
        return median(inside);
    case NORLEX_statisticMin:
        return std::min_element(inside.begin(), inside.end(), isSmaller)->value;
    case NORLEX_statisticMax:
        return std::max_element(inside.begin(), inside.end(), isSmaller)->value;
    case NORLEX_statisticSum:
        return sumOf(inside);
    case NORLEX_statisticCount:
        return static_cast<double>(inside.size());
    case NORLEX_statisticDeviation:
        return deviation(inside);
    }
    return NORLEX_missingValue;
}

} // namespace

std::vector<double> of(std::span<const NORLEX_logSample> samples,
                       std::span<const depthSpan> intervals,
                       NORLEX_statistic statistic) {
    const auto valued = valuedOf(samples);
    const auto isAbove = [](const auto& sample, double depth) { return sample.depth < depth; };
    const auto isBelow = [](double depth, const auto& sample) { return depth < sample.depth; };
    std::vector<double> out;
    for (const auto& interval : intervals) {
        const auto first =
            std::lower_bound(valued.begin(), valued.end(), interval.top - sameDepth, isAbove);
        const auto last = std::upper_bound(first, valued.end(), interval.bot + sameDepth, isBelow);
        out.push_back(first == last ? NORLEX_missingValue
                                    : statisticOf({first, last}, interval, statistic));
    }
    return out;
}

} // namespace intervalStatistics

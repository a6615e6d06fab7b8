// The quick computations against their definitions, on irregular logs with gaps and repeated
// depths.
#include "derived/interval_statistics.h"
#include "derived/sample_order.h"
#include "derived/simplify.h"
#include "derived/window_filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using samples = std::vector<NORLEX_logSample>;
using generator = std::mt19937;

double between(generator& r, double from, double to) {
    return std::uniform_real_distribution<>(from, to)(r);
}

bool isMissing(const NORLEX_logSample& sample) {
    return sampleOrder::isMissing(sample.value);
}

// A walk with spikes; about one sample in twenty is missing, one in fifteen repeats a depth.
samples randomLog(generator& r, std::size_t count) {
    samples out;
    double depth = between(r, -10, 10);
    double value = 50;
    for (std::size_t i = 0; i < count; ++i) {
        depth += between(r, 0, 15) < 1 ? 0 : between(r, 0.01, 0.3);
        value += between(r, -3, 3);
        const double spike = between(r, 0, 50) < 1 ? between(r, -500, 500) : 0;
        out.push_back({depth, -depth, between(r, 0, 20) < 1 ? NORLEX_missingValue : value + spike});
    }
    return out;
}

std::vector<double> valuesWithin(const samples& log, double top, double bot) {
    std::vector<double> out;
    for (const auto& sample : log)
        if (!isMissing(sample) && sample.depth >= top - sampleOrder::sameDepth
            && sample.depth <= bot + sampleOrder::sameDepth)
            out.push_back(sample.value);
    return out;
}

double meanOf(const std::vector<double>& values) {
    long double sum = 0;
    for (const double value : values)
        sum += value;
    return static_cast<double>(sum / static_cast<long double>(values.size()));
}

double medianOf(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t count = values.size();
    return (values[(count - 1) / 2] + values[count / 2]) / 2;
}

// Ramer, Douglas, Peucker as they are told: a search through all points, by recursion.
void keep(
    const samples& piece, std::size_t upper, std::size_t lower, double tolerance, samples& out) {
    const auto& a = piece[upper];
    const auto& b = piece[lower];
    std::size_t farthest = upper;
    double distance = tolerance;
    for (std::size_t i = upper + 1; i < lower; ++i) {
        const double line =
            a.value + (b.value - a.value) * ((piece[i].depth - a.depth) / (b.depth - a.depth));
        if (std::abs(piece[i].value - line) > distance) {
            distance = std::abs(piece[i].value - line);
            farthest = i;
        }
    }
    if (farthest == upper)
        return;
    keep(piece, upper, farthest, tolerance, out);
    out.push_back(piece[farthest]);
    keep(piece, farthest, lower, tolerance, out);
}

samples withoutGaps(samples log) {
    std::erase_if(log, isMissing);
    samples out;
    for (const auto& sample : log)
        if (out.empty() || sample.depth > out.back().depth)
            out.push_back(sample);
    return out;
}

std::vector<double> depthsOf(const samples& log) {
    std::vector<double> out;
    for (const auto& sample : log)
        out.push_back(sample.depth);
    return out;
}

} // namespace

TEST(RandomLogs, windowsHoldWhatTheDefinitionSays) {
    generator r(1);
    for (int round = 0; round < 60; ++round) {
        const auto log = randomLog(r, 1 + r() % 700); // more than a level of ranks
        const double window = between(r, 0.01, round % 3 == 0 ? 300 : 5);
        const auto means = windowFilter::filtered(log, NORLEX_windowMean, window);
        const auto medians = windowFilter::filtered(log, NORLEX_windowMedian, window);
        ASSERT_EQ(means.size(), log.size());
        for (std::size_t i = 0; i < log.size(); ++i) {
            if (isMissing(log[i])) {
                ASSERT_TRUE(isMissing(means[i]) && isMissing(medians[i]));
                continue;
            }
            const auto inside =
                valuesWithin(log, log[i].depth - window / 2, log[i].depth + window / 2);
            ASSERT_NEAR(means[i].value, meanOf(inside), 1e-10) << round << ' ' << i;
            ASSERT_NEAR(medians[i].value, medianOf(inside), 1e-10) << round << ' ' << i;
        }
    }
}

TEST(RandomLogs, theSamplesKeptAreThoseOfASearchThroughAll) {
    generator r(2);
    for (int round = 0; round < 60; ++round) {
        auto log = withoutGaps(randomLog(r, 2 + r() % 3000));
        if (round % 4 == 0) // amplitude that grows: the search goes a few samples a step
            for (std::size_t i = 0; i < log.size(); ++i)
                log[i].value =
                    (i % 2 == 0 ? 1.0 : -1.0) * static_cast<double>(i) + between(r, 0, 1);
        const double tolerance = between(r, 0, 20);
        samples expected = {log.front()};
        keep(log, 0, log.size() - 1, tolerance, expected);
        if (log.size() > 1)
            expected.push_back(log.back());
        ASSERT_EQ(depthsOf(simplify::simplified(log, tolerance)), depthsOf(expected)) << round;
    }
}

TEST(RandomLogs, statisticsAreThoseOfTheValuesWithin) {
    generator r(3);
    for (int round = 0; round < 40; ++round) {
        const auto log = randomLog(r, r() % 400);
        std::vector<depthSpan> intervals;
        for (int i = 0; i < 30; ++i) {
            const double top = between(r, -15, 60);
            intervals.push_back({top, top + between(r, 0, i % 2 == 0 ? 1 : 50)});
        }
        const auto of = [&](NORLEX_statistic which) {
            return intervalStatistics::of(log, intervals, which);
        };
        const auto medians = of(NORLEX_statisticMedian);
        const auto sums = of(NORLEX_statisticSum);
        const auto deviations = of(NORLEX_statisticDeviation);
        const auto means = of(NORLEX_statisticMean);
        for (std::size_t i = 0; i < intervals.size(); ++i) {
            const auto inside = valuesWithin(log, intervals[i].top, intervals[i].bot);
            ASSERT_EQ(sampleOrder::isMissing(sums[i]), inside.empty());
            if (inside.size() < 2)
                continue;
            ASSERT_NEAR(medians[i], medianOf(inside), 1e-10);
            ASSERT_NEAR(sums[i], meanOf(inside) * static_cast<double>(inside.size()), 1e-8);
            double squares = 0;
            for (const double value : inside)
                squares += (value - meanOf(inside)) * (value - meanOf(inside));
            ASSERT_NEAR(
                deviations[i], std::sqrt(squares / static_cast<double>(inside.size() - 1)), 1e-8);
            // weighted, it is still among the values
            const auto [least, most] = std::minmax_element(inside.begin(), inside.end());
            ASSERT_GE(means[i], *least - 1e-9);
            ASSERT_LE(means[i], *most + 1e-9);
        }
    }
}

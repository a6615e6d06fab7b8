#include "trajectory/station_search.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double notNumber = std::numeric_limits<double>::quiet_NaN();

// The definition: a scan for the first station below the target.
std::size_t scanFrom(const std::vector<double>& keys, std::size_t from, double target) {
    for (std::size_t i = from; i < keys.size(); ++i)
        if (keys[i] < target)
            return i == 0 ? 0 : i - 1;
    return keys.size() - 1;
}

std::size_t scan(const std::vector<double>& keys, std::size_t active, double target) {
    if (keys[active] == target)
        return active;
    return scanFrom(keys, keys[active] < target ? 0 : active + 1, target);
}

using generator = std::mt19937;

std::size_t below(generator& r, std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(r);
}

// Keys of a hole whose steps are drawn from `steps`: few values, so that levels repeat and are
// met again, and targets fall on stations as well as between them.
std::vector<double> randomKeys(generator& r, const std::vector<double>& steps) {
    std::vector<double> keys(1 + below(r, 70));
    double key = 0.0;
    for (auto& k : keys) {
        const double step = steps[below(r, steps.size())];
        key += std::isfinite(step) ? step : 0.0;
        k = std::isfinite(step) ? key : step;
    }
    return keys;
}

double randomTarget(generator& r, const std::vector<double>& keys) {
    constexpr double beside[] = {-50.0, -0.5, 0.0, 0.0, 0.5, 50.0};
    switch (below(r, 60)) {
    case 0:
        return notNumber;
    case 1:
        return inf;
    case 2:
        return -inf;
    default:
        return keys[below(r, keys.size())] + beside[below(r, std::size(beside))];
    }
}

} // namespace

TEST(StationSearchTest, findsWhatAScanFinds) {
    struct {
        const char* where;
        std::vector<double> steps;
    } const holes[] = {
        {"straight down", {-1, -2}},
        {"repeated stations", {-1, 0, 0}},
        {"level", {0}},
        {"rising", {1, 2}},
        {"wandering", {-2, -1, 0, 1, 2}},
        {"down with rises", {-3, -3, -3, 2}},
        {"values that are missing", {-1, 0, 1, notNumber}},
        {"values out of bounds", {-1, 1, inf, -inf, notNumber}},
    };
    for (const auto& hole : holes)
        for (unsigned int seed = 0; seed < 1000; ++seed) {
            generator r(seed);
            const auto keys = randomKeys(r, hole.steps);
            const stationSearch search(keys);
            std::size_t active = 0;
            for (int i = 0; i < 60; ++i) {
                if (i % 10 == 0)
                    active = below(r, keys.size());
                const double target = randomTarget(r, keys);
                const std::size_t found = search.find(active, target);
                ASSERT_EQ(found, scan(keys, active, target))
                    << hole.where << ", seed " << seed << ", from " << active << ", " << target;
                active = found;
                ASSERT_EQ(search.findFromTop(target), scanFrom(keys, 0, target))
                    << hole.where << ", seed " << seed << ", " << target;
            }
        }
}

// A level hole over a deep one, looked up forth and back: each scan would pass 200,000 stations,
// so a million of them would take minutes.
TEST(StationSearchTest, costsLittleInAnyOrder) {
    std::vector<double> keys(200'000, 0.0);
    keys.push_back(-10.0);
    const stationSearch search(keys);
    const auto start = std::chrono::steady_clock::now();
    std::size_t sum = 0;
    for (int i = 0; i < 500'000; ++i)
        sum += search.find(0, -5.0) + search.find(keys.size() - 1, -5.0);
    EXPECT_EQ(sum, std::size_t{500'000} * 2 * 199'999);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

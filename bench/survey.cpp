// Depth conversions along a survey of 10,000 stations.
#include "bench/child.h"
#include "bench/database.h"
#include "bench/measures.h"

#include "NORLEX_well.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace bench {

namespace {

constexpr std::size_t stationCount = 10'000;
constexpr double spacing = 0.5; // m
constexpr std::size_t calls = 1'000'000;

// Leans between 10 and 50 degrees and turns all the way, so that no two intervals are alike.
std::vector<inclData> stations() {
    std::vector<inclData> out(stationCount);
    for (std::size_t i = 0; i < stationCount; ++i) {
        const auto n = static_cast<double>(i);
        out[i].depth = spacing * n;
        out[i].angle = i == 0 ? 0.0 : 30.0 + 20.0 * std::sin(n * 0.01);
        out[i].azimuth = std::fmod(n * 0.3, 360.0);
    }
    return out;
}

using conversion = double (NORLEX_inclinometry::*)(double);

double
nanoseconds(NORLEX_inclinometry& survey, conversion convert, const std::vector<double>& depths) {
    volatile double kept = 0.0; // keeps the calls
    double sum = 0.0;
    const double time = timedOnProcessor([&] {
        for (const double depth : depths)
            sum += (survey.*convert)(depth);
    });
    kept = sum;
    static_cast<void>(kept);
    return time * 1e9 / static_cast<double>(depths.size());
}

// getAbs in order, at random, getReal in order, at random: nanoseconds a call.
std::vector<double> conversions(NORLEX_inclinometry& survey, std::size_t rounds) {
    std::vector<double> inOrder(calls), inOrderAbs(calls);
    const double bottom = spacing * stationCount;
    for (std::size_t i = 0; i < calls; ++i) {
        inOrder[i] = bottom * static_cast<double>(i) / static_cast<double>(calls);
        inOrderAbs[i] = survey.getAbs(inOrder[i]);
    }
    auto random = inOrder;
    auto randomAbs = inOrderAbs;
    std::shuffle(random.begin(), random.end(), std::mt19937(1));
    std::shuffle(randomAbs.begin(), randomAbs.end(), std::mt19937(2));
    std::vector<std::vector<double>> times(4);
    for (std::size_t round = 0; round < rounds; ++round) {
        times[0].push_back(nanoseconds(survey, &NORLEX_inclinometry::getAbs, inOrder));
        times[1].push_back(nanoseconds(survey, &NORLEX_inclinometry::getAbs, random));
        times[2].push_back(nanoseconds(survey, &NORLEX_inclinometry::getReal, inOrderAbs));
        times[3].push_back(nanoseconds(survey, &NORLEX_inclinometry::getReal, randomAbs));
    }
    return {median(times[0]), median(times[1]), median(times[2]), median(times[3])};
}

std::vector<double> onStoredSurvey(const std::string& base, std::size_t rounds) {
    const auto container = newContainer(base);
    const NORLEX_wellDescription name{L"", L"", L"survey", 0};
    if (!container || !NORLEX_well::create(container->getBaseLink(), name))
        return {};
    NORLEX_well well(container->getBaseLink(), name);
    if (!well.setAltitude(120.0) || !well.loadInclFromData(stations(), true)
        || well.getIncl()->getDataCount() != stationCount)
        return {};
    return conversions(*well.getIncl(), rounds);
}

} // namespace

bool survey(const settings& with, std::vector<figure>& figures) {
    const auto result =
        inChild([&] { return onStoredSurvey(with.folder + "/survey.well2", with.rounds); });
    if (!result)
        return failed("the survey");
    add(figures, atMost("getAbs, depths in order", "ns", result->values[0], 20.0));
    add(figures, atMost("getAbs, random depths", "ns", result->values[1], 300.0));
    add(figures, atMost("getReal, depths in order", "ns", result->values[2], 20.0));
    add(figures, atMost("getReal, random depths", "ns", result->values[3], 300.0));
    return true;
}

} // namespace bench

// Conversions between depth and time with a velocity-depth model of 10,000 points.
#include "bench/child.h"
#include "bench/database.h"
#include "bench/measures.h"

#include "NORLEX_well.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace bench {

namespace {

constexpr std::size_t pointCount = 10'000;
constexpr double spacing = 0.5; // m
constexpr double altitude = 120.0;
constexpr std::size_t calls = 1'000'000;

// From 1,500 to 4,500 m/s, so that no two intervals are alike. Times out of order wander back by up
// to 100 ms all the way, as those of a model that was put together of several.
std::vector<vdm_data> points(bool areOrdered) {
    std::vector<vdm_data> out(pointCount);
    double time = 0.0;
    for (std::size_t i = 0; i < pointCount; ++i) {
        const auto n = static_cast<double>(i);
        out[i].depth = altitude - spacing * n;
        out[i].time = time + (areOrdered ? 0.0 : 50.0 * std::sin(n * 0.7));
        time -= 2000.0 * spacing / (3000.0 + 1500.0 * std::sin(n * 0.01));
    }
    return out;
}

using conversion = double (NORLEX_wellVDM::*)(double);

double nanoseconds(NORLEX_wellVDM& model, conversion convert, const std::vector<double>& given) {
    volatile double kept = 0.0; // keeps the calls
    double sum = 0.0;
    const double time = timedOnProcessor([&] {
        for (const double one : given)
            sum += (model.*convert)(one);
    });
    kept = sum;
    static_cast<void>(kept);
    return time * 1e9 / static_cast<double>(given.size());
}

// getTime and getDepth with arguments at random from the whole model: nanoseconds a call.
std::vector<double> conversions(NORLEX_wellVDM& model, std::size_t rounds) {
    NORLEX_intervalValue depthRange;
    NORLEX_intervalValue timeRange;
    if (!model.getModelCoverageDepth(depthRange) || !model.getModelCoverageTime(timeRange))
        return {};
    std::mt19937 r(1);
    std::uniform_real_distribution depth(depthRange.bot, depthRange.top);
    std::uniform_real_distribution time(timeRange.bot, timeRange.top);
    std::vector<double> depths(calls), times(calls);
    std::generate(depths.begin(), depths.end(), [&] { return depth(r); });
    std::generate(times.begin(), times.end(), [&] { return time(r); });
    std::vector<std::vector<double>> out(2);
    for (std::size_t round = 0; round < rounds; ++round) {
        out[0].push_back(nanoseconds(model, &NORLEX_wellVDM::getTime, depths));
        out[1].push_back(nanoseconds(model, &NORLEX_wellVDM::getDepth, times));
    }
    return {median(out[0]), median(out[1])};
}

std::vector<double> onStoredModels(const std::string& base, std::size_t rounds) {
    const auto container = newContainer(base);
    const NORLEX_wellDescription name{L"", L"", L"model", 0};
    if (!container || !NORLEX_well::create(container->getBaseLink(), name))
        return {};
    NORLEX_well well(container->getBaseLink(), name);
    if (!well.setAltitude(altitude) || !well.VDMimport_fromPoints(points(true)))
        return {};
    auto out = conversions(*well.getVDM(), rounds);
    if (!well.VDMimport_fromPoints(points(false)))
        return {};
    const auto unordered = conversions(*well.getVDM(), rounds);
    out.insert(out.end(), unordered.begin(), unordered.end());
    return out.size() == 4 ? out : std::vector<double>();
}

} // namespace

bool vdm(const settings& with, std::vector<figure>& figures) {
    const auto result =
        inChild([&] { return onStoredModels(with.folder + "/model.well2", with.rounds); });
    if (!result)
        return failed("the velocity model");
    add(figures, atMost("getTime, random depths", "ns", result->values[0], 300.0));
    add(figures, atMost("getDepth, random times", "ns", result->values[1], 300.0));
    add(figures, atMost("getTime, times out of order", "ns", result->values[2], 300.0));
    add(figures, atMost("getDepth, times out of order", "ns", result->values[3], 300.0));
    return true;
}

} // namespace bench

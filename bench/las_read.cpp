// Reading a large LAS file, beside a bare loop over its bytes.
#include "bench/child.h"
#include "bench/las_files.h"
#include "bench/measures.h"

#include "NORLEX_lasfileExt.h"
#include "platform/strconv.h"

#include <charconv>
#include <cstdio>
#include <memory>
#include <string_view>

namespace bench {

namespace {

constexpr double megabyte = 1e6;

const char* number(const char* at, const char* end, double& value) {
    while (at != end && *at == ' ')
        ++at;
    return std::from_chars(at, end, value).ptr;
}

// What every reader has to do at least: each number of the file parsed, and stored with its depth.
void bareLoop(std::string_view data, std::vector<std::vector<Tts_vtx_d2>>& curves) {
    const char* at = data.data();
    const char* end = at + data.size();
    while (at != end) {
        double depth = 0.0;
        at = number(at, end, depth);
        for (auto& curve : curves) {
            double value = 0.0;
            at = number(at, end, value);
            curve.push_back({value, depth});
        }
        while (at != end && *at++ != '\n') {
        }
    }
}

std::vector<double> bare(const std::string& path, std::size_t rows) {
    const auto bytes = readWhole(path);
    const std::string_view data = bytes.text();
    const std::size_t start = data.find("~ASCII\n") + 7;
    std::vector<std::vector<Tts_vtx_d2>> curves(curvesOfLarge);
    const double time = timed([&] {
        for (auto& curve : curves)
            curve.reserve(rows);
        bareLoop(data.substr(start), curves);
    });
    if (curves.back().size() != rows)
        return {};
    return {static_cast<double>(data.size()) / megabyte / time};
}

std::vector<double> headerSeconds(const std::string& path) {
    const std::wstring file = ts::strconv::fromUtf8(path);
    bool good = false;
    const double time = timed([&] {
        const NORLEX_lasfileExt las(file, true);
        good = las.isOK() && las.getNumCurves() == curvesOfLarge;
    });
    return good ? std::vector{time} : std::vector<double>{};
}

} // namespace

std::vector<double> readRate(const std::string& path, std::size_t rows) {
    const std::wstring file = ts::strconv::fromUtf8(path);
    std::unique_ptr<NORLEX_lasfileExt> las;
    const double time = timed([&] { las = std::make_unique<NORLEX_lasfileExt>(file, false); });
    const bool good = las->isOK() && las->getNumCurves() == curvesOfLarge
                      && las->getCurveByIndex(curvesOfLarge - 1)->getPointsCount() == rows;
    return good ? std::vector{sizeOf(path) / megabyte / time} : std::vector<double>{};
}

bool lasRead(const settings& with, std::vector<figure>& figures) {
    const std::string path = with.folder + "/large.las";
    if (!makeLas(path, "BIG-1", with.rows, curvesOfLarge))
        return failed("making " + path);
    std::vector<double> rates, limits, headers, memory;
    for (std::size_t round = 0; round < with.rounds; ++round) {
        const auto limit = inChild([&] { return bare(path, with.rows); });
        const auto read = inChild([&] { return readRate(path, with.rows); });
        const auto header = inChild([&] { return headerSeconds(path); });
        if (!limit || !read || !header)
            return failed("reading " + path);
        limits.push_back(limit->values[0]);
        rates.push_back(read->values[0]);
        memory.push_back(read->peakBytes / megabyte);
        headers.push_back(header->values[0] * 1e3);
    }
    const double points = 16.0 * static_cast<double>(with.rows * curvesOfLarge) / megabyte;
    add(figures, against("LAS read", "MB/s", rates, "bare from_chars loop", limits, 0.8));
    figure peak = against("LAS read, peak memory",
                          "MB",
                          memory,
                          "the points' own bytes",
                          std::vector<double>(memory.size(), points),
                          1.35);
    peak.atMost = true;
    add(figures, peak);
    add(figures, atMost("LAS header alone", "ms", median(headers), 5.0));
    return true;
}

} // namespace bench

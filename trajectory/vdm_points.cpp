#include "trajectory/vdm_points.h"

#include "platform/numbers.h"
#include "platform/strconv.h"

#include <algorithm>
#include <cmath>

namespace vdmPoints {

namespace {

constexpr double sameAsHead = 0.1; // metres

std::wstring shown(double number) {
    return ts::strconv::fromUtf8(numbers::shortest(number + 0.0)); // no "-0"
}

std::wstring tooEarly(const sourced& point, const vdm_data& above) {
    return L"the two-way time " + shown(-point.time) + L" ms at the absolute depth "
           + shown(point.depth) + L" is not greater than " + shown(-above.time) + L" ms at "
           + shown(above.depth) + L" above it";
}

} // namespace

std::vector<vdm_data> ofTimeIntervals(double altitude, std::span<const interval> intervals) {
    std::vector<vdm_data> out{{L"", altitude, intervals.empty() ? 0.0 : intervals.front().top}};
    for (const auto& [top, bot, velocity] : intervals)
        if (velocity > 0.0)
            out.push_back({L"", out.back().depth + (bot - top) * velocity / 2000.0, bot});
    return out;
}

std::vector<vdm_data> ofDepthIntervals(double altitude, std::span<const interval> intervals) {
    std::vector<vdm_data> out{{L"", altitude, 0.0}};
    for (const auto& [top, bot, velocity] : intervals) {
        const auto& last = out.back();
        if (bot <= altitude && velocity > 0.0)
            out.push_back({L"", bot, last.time + (bot - last.depth) / velocity * 2000.0});
    }
    return out;
}

double storedTime(double given, const NORLEX_VDMcreateOptions& options) {
    return 0.0 - given * (options.seconds ? 1000.0 : 1.0) * (options.oneWay ? 2.0 : 1.0);
}

std::vector<vdm_data> arranged(std::vector<sourced> points, double altitude, const fault& tell) {
    std::stable_sort(points.begin(), points.end(), [](const auto& a, const auto& b) {
        return a.depth > b.depth;
    });
    std::vector<vdm_data> out;
    for (const auto& point : points) {
        if (point.depth > altitude + sameAsHead) {
            tell(point,
                 L"the absolute depth " + shown(point.depth) + L" is above the well head at "
                     + shown(altitude));
            continue;
        }
        const bool isHead = out.empty() && point.depth >= altitude - sameAsHead;
        const vdm_data above = out.empty() ? vdm_data{L"", altitude, 0.0} : out.back();
        if (!out.empty() && point.depth == above.depth && point.time == above.time)
            continue;
        if (!isHead && !(point.depth < above.depth && point.time < above.time))
            tell(point, tooEarly(point, above));
        else
            out.push_back({L"", point.depth, point.time});
    }
    return out;
}

} // namespace vdmPoints

#include "derived/sonic_times.h"

#include "derived/options.h"
#include "derived/sample_order.h"
#include "platform/last_error.h"
#include "platform/strconv.h"

#include <algorithm>
#include <cmath>

using options::shown;

namespace sonicTimes {

namespace {

constexpr double metresInFoot = 0.3048;

// A transit time on the way down.
struct value {
    double depth = 0.0; // absolute
    double transit = 0.0;
    bool isCarried = false; // from above: what lies between the two has no values
};

bool isTransit(double number) {
    return std::isfinite(number) && number > 0.0 && !sampleOrder::isMissing(number);
}

std::vector<value> valuesOf(std::span<const NORLEX_logSample> samples) {
    std::vector<value> out;
    bool isGap = false;
    for (const auto& sample : samples) {
        if (!std::isfinite(sample.depthAbs) || sample.depthAbs == NORLEX_unknownDepth)
            continue;
        if (!isTransit(sample.value))
            isGap = true;
        else if (out.empty() || sample.depthAbs < out.back().depth) {
            out.push_back({sample.depthAbs, sample.value, isGap});
            isGap = false;
        }
    }
    return out;
}

bool refuseGap(double top, double bot, double longest) {
    return refuse(L"the log has no values from " + shown(top) + L" to " + shown(bot)
                  + L" (absolute depth), which is more than the " + shown(longest)
                  + L" m that may be bridged");
}

bool areWithoutGaps(const std::vector<value>& values, double longest) {
    for (std::size_t i = 1; i < values.size(); ++i)
        if (values[i - 1].depth - values[i].depth > longest + sampleOrder::sameDepth)
            return refuseGap(values[i - 1].depth, values[i].depth, longest);
    return true;
}

double transitAt(const value& above, const value& below, double depth) {
    const double share = (above.depth - depth) / (above.depth - below.depth);
    return below.isCarried ? above.transit
                           : above.transit + (below.transit - above.transit) * share;
}

// The values from the tie point down, the first one at it.
bool cutAt(double tie, double longest, std::vector<value>& values) {
    if (values.empty())
        return refuse(
            L"the log has no interval transit times; numbers greater than 0 are expected");
    if (tie <= values.back().depth)
        return refuse(L"the tie point at " + shown(tie) + L" is not above the last value at "
                      + shown(values.back().depth) + L" (absolute depth)");
    const auto below = std::find_if(
        values.begin(), values.end(), [tie](const auto& one) { return one.depth < tie; });
    value first{tie, below->transit, false};
    if (below != values.begin())
        first.transit = transitAt(*(below - 1), *below, tie);
    values.erase(values.begin(), below);
    values.insert(values.begin(), first);
    return areWithoutGaps(values, longest);
}

} // namespace

std::optional<double> lengthOf(const std::wstring& units) {
    std::wstring plain = ts::strconv::lower(units);
    std::erase_if(plain, [](wchar_t c) { return c == L' ' || c == L'.'; });
    const auto slash = plain.find(L'/');
    if (slash == std::wstring::npos)
        return std::nullopt;
    // the micro sign and the Greek letter look alike
    static constexpr const wchar_t* times[] = {
        L"us", L"usec", L"µs", L"\u03bcs", L"µsec", L"\u03bcsec", L"мкс"};
    static constexpr const wchar_t* feet[] = {L"f", L"ft", L"feet", L"фут"};
    static constexpr const wchar_t* metres[] = {L"m", L"м"};
    const auto isOneOf = [](const auto& words, const std::wstring& word) {
        return std::find(std::begin(words), std::end(words), word) != std::end(words);
    };
    if (!isOneOf(times, plain.substr(0, slash)))
        return std::nullopt;
    const std::wstring length = plain.substr(slash + 1);
    if (isOneOf(feet, length))
        return metresInFoot;
    return isOneOf(metres, length) ? std::optional(1.0) : std::nullopt;
}

std::optional<std::vector<vdm_data>> integrated(std::span<const NORLEX_logSample> samples,
                                                const request& how) {
    auto values = valuesOf(samples);
    if (!cutAt(how.tieDepth, how.maxGap, values))
        return std::nullopt;
    const double twoWayMilliseconds = 2.0 / 1000.0 / how.length; // of a metre and a microsecond
    std::vector<vdm_data> out{{L"", how.tieDepth, how.tieTime}};
    double time = how.tieTime;
    for (std::size_t i = 1; i < values.size(); ++i) {
        const auto& above = values[i - 1];
        const auto& below = values[i];
        const double transit =
            below.isCarried ? above.transit : (above.transit + below.transit) / 2.0;
        time -= (above.depth - below.depth) * transit * twoWayMilliseconds;
        if (i + 1 == values.size() || out.back().depth - below.depth >= how.step)
            out.push_back({L"", below.depth, time});
    }
    return out;
}

} // namespace sonicTimes

// Logs made from data: members of NORLEX_well.
#include "NORLEX_well.h"
#include "derived/options.h"
#include "derived/result_data.h"
#include "derived/simplify.h"
#include "derived/source_data.h"
#include "derived/splice.h"
#include "derived/step_log.h"
#include "derived/window_filter.h"
#include "platform/last_error.h"
#include "wells/names.h"

#include <algorithm>

using options::shown;

namespace {

const wchar_t* nameOf(NORLEX_windowKind kind) {
    return kind == NORLEX_windowMedian ? L"median" : L"mean";
}

const wchar_t* nameOf(NORLEX_lasOverlap overlap) {
    switch (overlap) {
    case NORLEX_lasOverlapLower:
        return L"lower";
    case NORLEX_lasOverlapMean:
        return L"mean";
    default:
        return L"upper";
    }
}

bool refuseUnits(const NORLEX_propDescription& run,
                 const std::wstring& units,
                 const NORLEX_propDescription& first,
                 const std::wstring& expected) {
    return refuse(L"the unit of " + names::shown(run) + L" is \"" + units + L"\", that of "
                  + names::shown(first) + L" \"" + expected + L"\"; the same unit is expected");
}

} // namespace

bool NORLEX_well::makeLogFromData(const NORLEX_propDescription& source,
                                  const std::wstring& field,
                                  double step,
                                  const NORLEX_propDescription& result) {
    if (!options::isPositive(L"the step of a log", step))
        return false;
    auto values = sourceData::readColumn(*this, source, field);
    if (!values)
        return false;
    sourceData::dropMissing(*values);
    const auto& pieces = values->pieces;
    const auto lowest = std::max_element(
        pieces.begin(), pieces.end(), [](auto& a, auto& b) { return a.span.bot < b.span.bot; });
    const auto depths = stepLog::depths(pieces.front().span.top, lowest->span.bot, step);
    if (!depths)
        return refuse(L"a step of " + shown(step) + L" makes too many samples from "
                      + shown(pieces.front().span.top) + L" to " + shown(lowest->span.bot)
                      + L"; fewer than " + shown(stepLog::mostSamples) + L" are expected");
    const auto results = values->arePoints
                             ? stepLog::ofSamples(sourceData::asSamples(*values), *depths)
                             : stepLog::ofPieces(pieces, *depths);
    std::vector<NORLEX_logSample> samples;
    samples.reserve(results.size());
    for (std::size_t i = 0; i < results.size(); ++i)
        samples.push_back({(*depths)[i], getIncl()->getAbs((*depths)[i]), results[i]});
    return resultData::writeLog(m_db,
                                *this,
                                result,
                                field + L" of " + source.name + L", step " + shown(step) + L" m",
                                {},
                                samples);
}

bool NORLEX_well::windowFilter(const NORLEX_propDescription& log,
                               NORLEX_windowKind kind,
                               double window,
                               const NORLEX_propDescription& result) {
    if (!options::isChoice(L"the kind of a filter", kind, NORLEX_windowMedian)
        || !options::isPositive(L"the window of a filter", window))
        return false;
    const auto source = sourceData::readLog(*this, log);
    return source
           && resultData::writeLog(m_db,
                                   *this,
                                   result,
                                   nameOf(kind) + (L" of " + log.name) + L", window "
                                       + shown(window) + L" m",
                                   source->units,
                                   ::windowFilter::filtered(source->samples, kind, window));
}

bool NORLEX_well::propSimplify(const NORLEX_propDescription& log,
                               double tolerance,
                               const NORLEX_propDescription& result) {
    if (!options::isPositive(L"the tolerance of a simplification", tolerance))
        return false;
    const auto source = sourceData::readLog(*this, log);
    return source
           && resultData::writeLog(m_db,
                                   *this,
                                   result,
                                   log.name + L" simplified, tolerance " + shown(tolerance),
                                   source->units,
                                   simplify::simplified(source->samples, tolerance));
}

bool NORLEX_well::joinLas(const std::vector<NORLEX_propDescription>& runs,
                          NORLEX_lasOverlap overlap,
                          const NORLEX_propDescription& result) {
    if (!options::isChoice(L"the choice of an overlap", overlap, NORLEX_lasOverlapMean))
        return false;
    if (runs.size() < 2)
        return refuse(L"runs to be joined: " + std::to_wstring(runs.size())
                      + L"; two or more are expected");
    std::vector<std::vector<NORLEX_logSample>> samples;
    std::wstring units;
    std::wstring description;
    for (const auto& run : runs) {
        auto source = sourceData::readLog(*this, run);
        if (!source)
            return false;
        if (!samples.empty() && source->units != units)
            return refuseUnits(run, source->units, runs.front(), units);
        units = source->units;
        description += (samples.empty() ? L"" : L", ") + names::shown(run);
        samples.push_back(std::move(source->samples));
    }
    return resultData::writeLog(m_db,
                                *this,
                                result,
                                description + L" joined, overlap " + nameOf(overlap),
                                units,
                                logSplice::joined(std::move(samples), overlap));
}

// Logs: their samples, and what is computed of them.
#include "fuzz/container/steps.h"
#include "odbc_database.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace fuzzContainer {

namespace {

using sampleList = std::vector<NORLEX_logSample>;

sampleList newSamples(choices& by) {
    sampleList out(by.below(6));
    double depth = by.depth();
    for (auto& sample : out) {
        sample.depth = by.below(8) == 0 ? by.number() : depth;
        sample.depthAbs = 60 - depth;
        sample.value = by.number();
        depth += by.depth();
    }
    return out;
}

bool isStorable(const sampleList& samples) {
    return std::ranges::all_of(samples, [](const auto& sample) {
        return std::isfinite(sample.depth) && std::isfinite(sample.depthAbs);
    });
}

// A value that is none is stored as a missing one.
bool isSame(const sampleList& written, const sampleList& read) {
    return std::ranges::equal(written, read, [](const auto& a, const auto& b) {
        return a.depth == b.depth && a.depthAbs == b.depthAbs
               && (std::isfinite(a.value) ? a.value : NORLEX_missingValue) == b.value;
    });
}

void requireSamples(NORLEX_well& well,
                    const NORLEX_propDescription& log,
                    const sampleList& written) {
    const auto again = well.openProperty(log);
    sampleList read;
    require(again && again->getSamples(read), "the samples of a new log cannot be read");
    require(isSame(written, read), "samples read otherwise");
    double smallest = 0, largest = 0;
    if (again->getRange(smallest, largest))
        require(smallest <= largest, "the range of a log is turned over");
}

outcome create(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto log = by.newProperty();
        const auto samples = newSamples(by);
        const bool done =
            NORLEX_wellProperty::createLAS(at.db(), well.getID(), log, by.text(), samples);
        require(!done || isStorable(samples), "samples without a depth were stored");
        if (done)
            requireSamples(well, log, samples);
        return done;
    });
}

outcome createByDepths(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto log = by.newProperty();
        std::vector<double> depths(by.below(5)), values(by.below(8) == 0 ? 1 : depths.size());
        for (auto& depth : depths)
            depth = by.number();
        for (auto& value : values)
            value = by.number();
        return NORLEX_wellProperty::createLAS(
            at.db(), well.getID(), log, depths, values, well.getIncl());
    });
}

outcome setSamples(world& at, choices& by) {
    return onProperty(
        at,
        by,
        [&](NORLEX_well& well, NORLEX_wellProperty& property) {
            const auto samples = newSamples(by);
            const bool announce = at.announced(by.flag());
            if (!property.setSamples(samples) || !property.commit(announce))
                return false;
            requireSamples(well, {property.getName(), property.getGroup()}, samples);
            return true;
        },
        kind::log);
}

outcome toSerial(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto log = by.property(well, kind::log);
        return NORLEX_wellProperty::createSerialFromLAS(
            at.db(), well.getID(), log, by.newProperty());
    });
}

outcome toOre(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const bool isLog = by.flag();
        const auto source = by.property(well, isLog ? kind::log : kind::rows);
        const auto field = isLog ? std::wstring() : by.field(well, source);
        const auto result = by.newProperty();
        NORLEX_oreOptions options;
        options.cutoff = by.number();
        options.minThickness = by.depth();
        options.maxWaste = by.depth();
        return NORLEX_wellProperty::createOreInterval(
            at.db(), well.getID(), source, field, result, options);
    });
}

constexpr step steps[] = {{L"logs.create", create},
                          {L"logs.createByDepths", createByDepths},
                          {L"logs.setSamples", setSamples},
                          {L"logs.toSerial", toSerial},
                          {L"logs.toOre", toOre}};

outcome logFromData(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto source = by.property(well, kind::rows), result = by.newProperty();
        const auto field = by.field(well, source);
        return well.makeLogFromData(source, field, by.depth(), result);
    });
}

outcome filter(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto source = by.property(well, kind::log), result = by.newProperty();
        const double window = by.number();
        return by.flag() ? well.propSimplify(source, window, result)
                         : well.windowFilter(
                             source, static_cast<NORLEX_windowKind>(by.below(2)), window, result);
    });
}

outcome markers(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto source = by.property(well, kind::log), result = by.newProperty();
        const double cutoff = by.number();
        return well.makeMarkerFromLAS(
            source, cutoff, static_cast<NORLEX_crossing>(by.below(3)), result);
    });
}

outcome join(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        std::vector<NORLEX_propDescription> runs;
        for (std::size_t count = 1 + by.below(3); runs.size() < count;)
            runs.push_back(by.property(well, kind::log));
        const auto overlap = static_cast<NORLEX_lasOverlap>(by.below(3));
        return well.joinLas(runs, overlap, by.newProperty());
    });
}

outcome attributeToColumn(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto log = by.property(well, kind::log), column = by.property(well, kind::rows);
        const auto field = by.flag() ? by.name() : by.field(well, column);
        return well.calcAttributeToColumn(
            log, column, field, static_cast<NORLEX_statistic>(by.below(7)));
    });
}

outcome intervals(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const bool isLog = by.flag();
        const auto source = by.property(well, isLog ? kind::log : kind::rows);
        const auto field = isLog ? std::wstring() : by.field(well, source);
        const auto result = by.newProperty();
        NORLEX_intervalOptions options;
        options.from = by.number();
        options.to = by.flag() ? options.from + by.depth() : by.number();
        options.minThickness = by.depth();
        options.maxGap = by.depth();
        return well.createIntervalsFromProp(source, field, options, result);
    });
}

constexpr step derived[] = {{L"derived.logFromData", logFromData},
                            {L"derived.filter", filter},
                            {L"derived.markers", markers},
                            {L"derived.join", join},
                            {L"derived.attributeToColumn", attributeToColumn},
                            {L"derived.intervals", intervals}};

} // namespace

std::span<const step> logSteps() {
    return steps;
}

std::span<const step> derivedSteps() {
    return derived;
}

} // namespace fuzzContainer

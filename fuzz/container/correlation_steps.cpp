// Correlations, border names, picks, and intervals across wells.
#include "NORLEX_corInterval.h"
#include "NORLEX_correlation.h"
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

#include <algorithm>
#include <vector>

namespace fuzzContainer {

namespace {

using cor = correlation::correlation;

NORLEX_propDescription oneLayer(world& at, choices& by) {
    std::vector<std::wstring> names;
    cor::getCorrelationList(at.db(), names);
    const auto name = by.oneOf(names);
    std::vector<std::wstring> groups;
    cor::getMirrorGroupList(at.db(), {name, L""}, groups);
    return {name, groups.empty() || by.flag() ? by.name() : groups.front()};
}

std::wstring oneBorder(world& at, choices& by, const NORLEX_propDescription& layer) {
    std::vector<std::wstring> names;
    cor::getBorderList(at.db(), layer, names);
    return by.oneOf(names);
}

outcome create(world& at, choices& by) {
    const NORLEX_propDescription layer = by.newProperty();
    const bool done = cor::createCorrelationLayer(at.db(), layer);
    require(!done || cor::isCorrelationExist(at.db(), layer), "a new correlation is not there");
    return of(done);
}

outcome rename(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto name = by.name();
    const auto id = cor::getCorrelationID(at.db(), layer);
    const bool done = cor::rename(at.db(), layer, name);
    require(!done || cor::getCorrelationID(at.db(), {name, layer.group}) == id,
            "a renamed correlation has not its new name");
    return of(done);
}

outcome remove(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const bool done = cor::removeCorrelation(at.db(), layer);
    require(!done || !cor::isCorrelationExist(at.db(), layer), "a removed correlation is there");
    return of(done);
}

outcome createName(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto border = by.name();
    const auto made = cor::createBorderName(at.db(), layer, border, by.name());
    require(made.empty() || cor::isBorderNameExist(at.db(), layer, made),
            "a new border name is not there");
    return of(!made.empty());
}

outcome renameName(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto border = oneBorder(at, by, layer);
    const auto name = by.name();
    const bool done = cor::renameBorder(at.db(), layer, border, name);
    require(!done || cor::isBorderNameExist(at.db(), layer, name),
            "a renamed border has not its new name");
    return of(done);
}

outcome deleteName(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto border = oneBorder(at, by, layer);
    const bool done = cor::deleteBorder(at.db(), layer, border);
    require(!done || !cor::isBorderNameExist(at.db(), layer, border), "a removed border is there");
    return of(done);
}

outcome moveToGroup(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto group = by.name();
    if (by.flag())
        return of(cor::renameGroup(at.db(), layer, group, by.name()));
    const auto border = oneBorder(at, by, layer);
    const bool done = cor::moveBorderElementToGroup(at.db(), layer, border, group);
    require(!done || cor::getBorderGroup(at.db(), layer, border) == sqlText::plainName(group),
            "a border is in another group");
    return of(done);
}

constexpr step steps[] = {{L"correlations.create", create},
                          {L"correlations.rename", rename},
                          {L"correlations.remove", remove},
                          {L"correlations.createName", createName},
                          {L"correlations.renameName", renameName},
                          {L"correlations.deleteName", deleteName},
                          {L"correlations.moveToGroup", moveToGroup}};

void requirePick(world& at,
                 bool done,
                 const NORLEX_propDescription& layer,
                 const NORLEX_wellDescription& well,
                 const std::wstring& border) {
    double measured = 0, absolute = 0;
    require(!done || cor::getDepth(at.db(), layer, well, border, measured, absolute),
            "a pick has no depth");
    std::vector<correlation::point> points;
    require(!done
                || (cor::loadData(at.db(), layer, well, NORLEX_dataDirectionMeasured, points)
                    && !points.empty()),
            "picks cannot be loaded");
}

outcome pick(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto well = by.well(at.db());
    const auto border = oneBorder(at, by, layer);
    const double depth = by.number();
    const bool done = by.flag() ? cor::createBorder(at.db(), layer, well, border, depth)
                                : cor::insertPoint(at.db(), layer, well, border, depth);
    requirePick(at, done, layer, well, border);
    return of(done);
}

outcome move(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto well = by.well(at.db());
    const auto border = oneBorder(at, by, layer);
    if (by.flag())
        return of(
            cor::setBorderType(at.db(), layer, well, border, static_cast<int>(by.below(260)) - 2));
    const double measured = by.number(), absolute = by.number();
    const bool done = cor::moveBorder(at.db(), layer, well, border, measured, absolute);
    requirePick(at, done, layer, well, border);
    return of(done);
}

outcome insertMany(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    std::vector<correlation::newPick> picks(by.below(4));
    for (auto& one : picks) {
        one.wellId = NORLEX_well::getID(at.db(), by.well(at.db()));
        one.border = by.name();
        one.depth = by.number();
        one.group = by.name();
    }
    correlation::pickSums sums;
    return of(cor::insertPoints(
        at.db(), layer, picks, static_cast<correlation::onExistingPick>(by.below(3)), sums));
}

outcome removePick(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto well = by.well(at.db());
    switch (by.below(5)) {
    case 0:
        return of(cor::deleteBorder(at.db(), layer, well, oneBorder(at, by, layer)));
    case 1:
        return of(cor::deleteBorderFromAllWells(at.db(), layer, oneBorder(at, by, layer)));
    case 2:
        return of(cor::deleteBordersFromGroup(
            at.db(), layer, by.name(), {NORLEX_well::getID(at.db(), well), 0}));
    case 3:
        return of(cor::deletePoint(at.db(), layer, static_cast<std::int64_t>(by.below(6))));
    default:
        return of(cor::clearWell(at.db(), layer, well));
    }
}

outcome copyWell(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto from = by.well(at.db()), to = by.well(at.db());
    return of(
        cor::copyWell(at.db(), layer, from, to, static_cast<NORLEX_dataDirection>(by.below(2))));
}

outcome ask(world& at, choices& by) {
    const auto layer = oneLayer(at, by);
    const auto well = by.well(at.db());
    NORLEX_depthRange range;
    const bool isPicked = cor::getDepthRange(at.db(), layer, well, range);
    std::vector<correlation::borderName> borders;
    cor::getBorderList(at.db(), layer, well, borders);
    require(isPicked == !borders.empty() || at.isInTransaction(), "a range without picks");
    static_cast<void>(cor::findPoint(at.db(), layer, well, by.number(), by.number()));
    return outcome::asked;
}

// A second connection would wait for the first one's transaction.
outcome intervals(world& at, choices& by) {
    if (at.isInTransaction())
        return outcome::asked;
    const auto description = by.well(at.db());
    const NORLEX_well well(at.db(), description);
    if (!well.isOK())
        return outcome::asked;
    NORLEX_corInterval across(at.container().getContDescription(),
                              {description},
                              by.property(well),
                              static_cast<NORLEX_dataDirection>(by.below(2)));
    require(across.isOK(), "the container cannot be opened twice");
    const double first = by.number(), second = by.number();
    static_cast<void>(across.isObjectAtDepth(by.below(2), first, second));
    switch (by.below(3)) {
    case 0:
        return of(across.addInterval(0, first, second));
    case 1:
        return of(across.moveIntervalBorder(0, first, second));
    default:
        return of(across.delInterval(0, first));
    }
}

constexpr step pickList[] = {{L"picks.pick", pick},
                             {L"picks.move", move},
                             {L"picks.insertMany", insertMany},
                             {L"picks.remove", removePick},
                             {L"picks.copyWell", copyWell},
                             {L"picks.ask", ask},
                             {L"picks.intervals", intervals}};

} // namespace

std::span<const step> correlationSteps() {
    return steps;
}

std::span<const step> pickSteps() {
    return pickList;
}

} // namespace fuzzContainer

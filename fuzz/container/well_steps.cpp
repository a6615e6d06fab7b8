// Wells: made, removed, renamed, moved.
#include "fuzz/container/steps.h"
#include "odbc_database.h"
#include "platform/sql_text.h"

#include <cmath>

namespace fuzzContainer {

namespace {

outcome create(world& at, choices& by) {
    const auto well = by.newWell();
    const bool isThere = NORLEX_well::isExist(at.db(), well);
    const bool done = NORLEX_well::create(at.db(), well);
    require(!done || !isThere, "a well was made twice");
    require(!done || NORLEX_well::isExist(at.db(), well), "a new well is not there");
    return of(done);
}

outcome remove(world& at, choices& by) {
    const auto well = by.well(at.db());
    const bool done = NORLEX_well::remove(at.db(), well);
    require(!done || !NORLEX_well::isExist(at.db(), well), "a removed well is there");
    return of(done);
}

outcome rename(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto target = by.newWell();
        const bool done = well.rename(target);
        require(!done || NORLEX_well::getID(at.db(), target) == well.getID(),
                "a renamed well has not its new names");
        return done;
    });
}

outcome setName(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto name = by.name();
        switch (by.below(3)) {
        case 0:
            return well.setName(name);
        case 1:
            return well.setFld(name);
        default:
            return well.setName(name, by.name());
        }
    });
}

outcome setPosition(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const double x = by.number(), y = by.number();
        const bool done = well.setPosition(x, y);
        require(!done || (well.getXCoord() == x && well.getYCoord() == y),
                "a position reads otherwise");
        return done;
    });
}

outcome setAltitude(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const double altitude = by.number();
        const bool done = well.setAltitude(altitude);
        require(!done || well.getAltitude() == altitude, "an altitude reads otherwise");
        return done;
    });
}

outcome setBottom(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const double bottom = by.number();
        const bool done = well.setBottom(bottom);
        require(!done
                    || std::abs(well.getBottomBaseValue() - bottom)
                           <= 0.00501 + 1e-9 * std::abs(bottom),
                "a bottom reads otherwise");
        return done;
    });
}

outcome resetBottom(world& at, choices& by) {
    return onWell(at, by, [](NORLEX_well& well) { return well.resetBottom(); });
}

outcome setAttribute(world& at, choices& by) {
    return onWell(at, by, [&](NORLEX_well& well) {
        const auto key = by.name(), value = by.text();
        const bool done = well.setAttribute(key, value);
        require(!done || well.getAttribute(key) == value, "an attribute reads otherwise");
        return done;
    });
}

outcome updateEditTime(world& at, choices& by) {
    return onWell(at, by, [](NORLEX_well& well) { return well.updateEditTime(); });
}

outcome compare(world& at, choices& by) {
    const auto first = NORLEX_well::getID(at.db(), by.well(at.db()));
    require(first == 0 || at.isInTransaction()
                || NORLEX_well::compareWells(at.db(), first, first).empty(),
            "a well differs from itself");
    static_cast<void>(
        NORLEX_well::compareWells(at.db(), first, NORLEX_well::getID(at.db(), by.well(at.db()))));
    return outcome::asked;
}

outcome removeMany(world& at, choices& by) {
    const auto first = by.well(at.db()), second = by.well(at.db());
    at.begin();
    static_cast<void>(NORLEX_well::remove(at.db(), first) && NORLEX_well::remove(at.db(), second));
    at.rollback();
    return outcome::asked;
}

constexpr step steps[] = {{L"wells.create", create},
                          {L"wells.remove", remove},
                          {L"wells.rename", rename},
                          {L"wells.setName", setName},
                          {L"wells.setPosition", setPosition},
                          {L"wells.setAltitude", setAltitude},
                          {L"wells.setBottom", setBottom},
                          {L"wells.resetBottom", resetBottom},
                          {L"wells.setAttribute", setAttribute},
                          {L"wells.updateEditTime", updateEditTime},
                          {L"wells.compare", compare},
                          {L"wells.removeAndRollBack", removeMany}};

} // namespace

std::span<const step> wellSteps() {
    return steps;
}

} // namespace fuzzContainer

// Picks, one by one and many at once.
#include "tests/correlation/correlation_fixture.h"

namespace {

constexpr double unknown = NORLEX_unknownDepth;
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST_F(CorrelationTest, secondDepthComesFromTheSurvey) {
    // By hand: the hole is vertical to 200 (absolute -100), below it 2 along are 1 down.
    ASSERT_TRUE(pick(first, L"top", 100.126)) << lastError();
    ASSERT_TRUE(store::insertPoint(db(), cor, first, L"mid", -150)) << lastError();
    ASSERT_TRUE(store::createBorder(db(), cor, first, L"base", 250, 7)) << lastError();
    EXPECT_EQ(picks(first), L"100.13 top, 250 base, 300 mid");
    EXPECT_EQ(picks(first, NORLEX_dataDirectionAbsolute), L"7 base, -0.13 top, -150 mid");
    double measured = 0.0;
    double absolute = 0.0;
    ASSERT_TRUE(store::getDepth(db(), cor, first, L"mid", measured, absolute));
    EXPECT_EQ(measured, 300);
    EXPECT_EQ(absolute, -150);
    EXPECT_FALSE(store::getDepth(db(), cor, first, L"none", measured, absolute));
    EXPECT_FALSE(store::getDepth(db(), cor, second, L"mid", measured, absolute));
}

TEST_F(CorrelationTest, eitherOrderPutsTheShallowestFirst) {
    for (const auto& [border, depth] : {std::pair(L"base", 300.0), {L"top", 20.0}, {L"mid", 150.0}})
        ASSERT_TRUE(pick(first, border, depth));
    EXPECT_EQ(picks(first), L"20 top, 150 mid, 300 base");
    EXPECT_EQ(picks(first, NORLEX_dataDirectionAbsolute), L"80 top, -50 mid, -150 base");
    EXPECT_EQ(picks(second), L"");
    EXPECT_EQ(picks(first, NORLEX_dataDirectionMeasured, L"None"),
              L"there is no correlation \"None\"");
}

TEST_F(CorrelationTest, refusedPicksLeaveNothing) {
    ASSERT_TRUE(pick(first, L"top", 10));
    const NORLEX_wellDescription nowhere{L"O", L"", L"W-1", 0};
    struct {
        const char* where;
        std::function<bool()> run;
        const char* says;
    } const cases[] = {
        {"twice",
         [&] { return pick(first, L"top", 20); },
         "picked on the well O / F / W-1 already"},
        {"border", [&] { return pick(first, L"none", 20); }, "no border \"none\""},
        {"well", [&] { return pick(nowhere, L"mid", 20); }, "no well O / W-1"},
        {"depth", [&] { return pick(first, L"mid", infinite); }, "is no depth"},
        {"no depth", [&] { return pick(first, L"mid", unknown); }, "unknown in both"},
        {"type", [&] { return store::insertPoint(db(), cor, first, L"mid", 1, 1, 256); }, "256"},
        {"correlation",
         [&] {
             return store::createBorder(db(), {L"None", L""}, first, L"mid", 1);
         },
         "no correlation \"None\""},
        {"unpicked", [&] { return store::moveBorder(db(), cor, first, L"mid", 1); }, "not picked"},
        {"move", [&] { return store::moveBorder(db(), cor, first, L"top", infinite); }, "no depth"},
        {"typed", [&] { return store::setBorderType(db(), cor, first, L"mid", 1); }, "not picked"},
        {"namesake",
         [&] { return store::deleteBorder(db(), cor, namesake, L"top"); },
         "not picked"},
        {"key", [&] { return store::deletePoint(db(), cor, 99); }, "99"},
        {"closed", [&] { return store::deletePoint(nullptr, cor, 1); }, ""},
    };
    const std::wstring rows = L"SELECT count(*), max(depth_real), max(type) FROM correlation_data";
    const std::wstring before = row(rows);
    for (const auto& one : cases) {
        EXPECT_EQ(heard(one.run).substr(0, 8), L"refused:") << one.where;
        EXPECT_NE(lastError().find(one.says), std::string::npos)
            << one.where << ": " << lastError();
        EXPECT_EQ(row(rows), before) << one.where;
        EXPECT_EQ(cell(L"SELECT count(*) FROM property"), L"1") << one.where;
    }
}

TEST_F(CorrelationTest, picksAreMovedTypedAndDeleted) {
    EXPECT_EQ(heard([&] { return pick(first, L"top", 10); }), L"2 1 F W-1 G Cor");
    EXPECT_EQ(heard([&] { return pick(first, L"mid", 20); }), L"2 4 F W-1 G Cor");
    ASSERT_TRUE(pick(namesake, L"mid", 20));
    EXPECT_EQ(heard([&] { return store::moveBorder(db(), cor, first, L"mid", 300); }),
              L"2 4 F W-1 G Cor");
    EXPECT_TRUE(store::setBorderType(db(), cor, NORLEX_well(db(), first), L"mid", 255));
    EXPECT_EQ(picks(first, NORLEX_dataDirectionAbsolute), L"90 top, -150 mid/255");
    EXPECT_TRUE(store::moveBorder(db(), cor, first, L"mid", unknown, -120));
    EXPECT_EQ(picks(first) + L" | " + picks(namesake), L"10 top, 240 mid/255 | 20 mid");
    EXPECT_EQ(heard([&] { return store::deleteBorder(db(), cor, first, L"mid"); }),
              L"2 4 F W-1 G Cor");
    std::vector<correlation::point> points;
    ASSERT_TRUE(store::loadData(db(), cor, first, NORLEX_dataDirectionMeasured, points));
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points.front().group, L"a");
    EXPECT_TRUE(store::deletePoint(db(), cor, points.front().pickId));
    EXPECT_EQ(picks(first) + L" | " + picks(namesake), L" | 20 mid");
    EXPECT_TRUE(store::deleteBorderFromAllWells(db(), cor, L"mid"));
    EXPECT_EQ(cell(L"SELECT count(*) FROM correlation_data"), L"0");
    EXPECT_TRUE(store::isBorderNameExist(db(), cor, L"mid"));
}

TEST_F(CorrelationTest, pickIsFoundNearADepth) {
    ASSERT_TRUE(pick(first, L"top", 10) && pick(first, L"mid", 10.75)
                && pick(namesake, L"base", 10));
    struct {
        double depth;
        double tolerance;
        const wchar_t* found;
    } const cases[] = {
        {90.5, 0.5, L"top"},
        {90.51, 0.5, L""},
        {89.7, 0.5, L"top"},
        {89.6, 0.5, L"mid"},
        {88.8, 0.5, L"mid"},
        {88.7, 0.5, L""},
        {80, 20, L"mid"},
        {90, 0, L"top"},
        {90, -1, L""},
        {infinite, 0.5, L""},
    };
    for (const auto& one : cases)
        EXPECT_EQ(store::findPoint(db(), cor, first, one.depth, one.tolerance), one.found)
            << one.depth << " " << one.tolerance;
    EXPECT_EQ(store::findPoint(db(), cor, second, 90), L"");
}

TEST_F(CorrelationTest, picksFollowSurveyAndAltitude) {
    ASSERT_TRUE(pick(first, L"top", 150) && pick(first, L"mid", 300) && pick(second, L"top", 150));
    NORLEX_well well(db(), first);
    ASSERT_TRUE(well.setAltitude(110));
    EXPECT_EQ(picks(first, NORLEX_dataDirectionAbsolute), L"-40 top, -140 mid");
    ASSERT_TRUE(well.loadInclFromData({station(100, 60)}, false));
    EXPECT_EQ(picks(first, NORLEX_dataDirectionAbsolute), L"-15 top, -90 mid");
    EXPECT_EQ(picks(first) + L" | " + picks(second, NORLEX_dataDirectionAbsolute),
              L"150 top, 300 mid | -100 top");
}

TEST_F(CorrelationTest, picksAreCopiedToAnotherWell) {
    ASSERT_TRUE(pick(first, L"top", 100) && pick(first, L"mid", 250)
                && store::setBorderType(db(), cor, first, L"mid", 3) && pick(first, L"base", 400)
                && pick(second, L"base", 77));
    ASSERT_TRUE(store::copyWell(db(), cor, first, second)) << lastError();
    EXPECT_EQ(picks(second), L"77 base, 100 top, 250 mid/3");
    EXPECT_EQ(picks(second, NORLEX_dataDirectionAbsolute), L"-27 base, -50 top, -200 mid/3");
    ASSERT_TRUE(store::copyWell(db(), cor, first, namesake, NORLEX_dataDirectionAbsolute));
    EXPECT_EQ(picks(namesake, NORLEX_dataDirectionAbsolute), L"0 top, -125 mid/3, -200 base");
    EXPECT_EQ(picks(namesake), L"0 top, 125 mid/3, 200 base"); // of altitude 0
    EXPECT_FALSE(store::copyWell(db(), cor, first, NORLEX_wellDescription{L"", L"", L"none", 0}));
    EXPECT_EQ(heard([&] { return store::copyWell(db(), cor, first, second); }), L"");
}

TEST_F(CorrelationTest, manyPicksAreMadeAtOnce) {
    const auto one = NORLEX_well::getID(db(), first);
    const auto two = NORLEX_well::getID(db(), second);
    ASSERT_TRUE(pick(first, L"mid", 50));
    correlation::pickSums sums;
    using enum correlation::onExistingPick;
    const std::vector<correlation::newPick> good = {
        {one, L"top", 250, unknown, 2, L""},
        {two, L"new", unknown, 20, 0, L"fresh"},
        {two, L"n'ew 2", 40, unknown, 0, L""},
        {one, L"new", 10, -3, 0, L"late"},
    };
    EXPECT_EQ(heard([&] { return store::insertPoints(db(), cor, good, fail, sums); }),
              L"13 1 new; 13 1 new 2; 2 4 F W-1 G Cor; 2 1 F W-2 G Cor");
    EXPECT_EQ(sums.inserted, 4U);
    EXPECT_EQ(sums.wells, 2U);
    EXPECT_EQ(sums.borders, 2U);
    EXPECT_EQ(sums.mirrors, 1U);
    EXPECT_EQ(picks(first, NORLEX_dataDirectionAbsolute), L"50 mid, -3 new, -125 top/2");
    EXPECT_EQ(picks(second), L"30 new, 40 new 2");
    EXPECT_EQ(store::getBorderGroup(db(), cor, L"new"), L"fresh");
    EXPECT_EQ(all(L"SELECT name FROM field ORDER BY pr_id, f_id"),
              L"Название,Группа,fld_border_type,Название,Группа,fld_border_type");

    const std::vector<correlation::newPick> again = {{one, L"top", 200}, {two, L"top", 9}};
    EXPECT_FALSE(store::insertPoints(db(), cor, again, fail, sums));
    EXPECT_NE(lastError().find("pick 1: "), std::string::npos) << lastError();
    EXPECT_EQ(picks(second), L"30 new, 40 new 2");
    ASSERT_TRUE(store::insertPoints(db(), cor, {{one, L"top", 200}}, skip, sums));
    EXPECT_EQ(sums.inserted + sums.moved, 0U);
    ASSERT_TRUE(store::insertPoints(db(), cor, again, move, sums)) << lastError();
    EXPECT_EQ(picks(first) + L" | " + picks(second),
              L"10 new, 50 mid, 200 top/2 | 9 top, 30 new, 40 new 2");
    EXPECT_EQ(sums.moved, 1U);
}

TEST_F(CorrelationTest, oneBadPickOfManyLeavesNothing) {
    const auto one = NORLEX_well::getID(db(), first);
    struct {
        correlation::newPick bad;
        const char* says;
    } const cases[] = {
        {{one, L"top", 5}, "\"top\" comes twice on the well O / F / W-1"},
        {{99, L"mid", 5}, "no well with the key 99"},
        {{one, L"'", 5}, "empty"},
        {{one, L"mid"}, "unknown in both"},
        {{one, L"mid", 3e6}, "3e+06 is no depth"},
        {{one, L"mid", 5, unknown, -1, L""}, "type -1"},
    };
    correlation::pickSums sums;
    for (const auto& c : cases) {
        EXPECT_FALSE(store::insertPoints(db(),
                                         cor,
                                         {{one, L"top", 1}, {one, L"new", 2}, c.bad},
                                         correlation::onExistingPick::move,
                                         sums));
        EXPECT_NE(lastError().find(std::string("pick 3: ")), std::string::npos) << lastError();
        EXPECT_NE(lastError().find(c.says), std::string::npos) << lastError();
        EXPECT_EQ(picks(first), L"") << c.says;
        EXPECT_FALSE(store::isBorderNameExist(db(), cor, L"new")) << c.says;
    }
}

} // namespace

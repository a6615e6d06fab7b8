// Border names and their groups.
#include "tests/correlation/correlation_fixture.h"

namespace {

TEST_F(CorrelationTest, takenBorderNamesAreMadeUnique) {
    struct {
        const wchar_t* given;
        const wchar_t* made;
    } const cases[] = {
        {L"top", L"top (2)"},
        {L"t'op", L"top (3)"},
        {L"top (2)", L"top (2) (2)"},
        {L"Top", L"Top"},
        {L"", L""},
        {L"'", L""},
    };
    for (const auto& one : cases)
        EXPECT_EQ(store::createBorderName(db(), cor, one.given, L""), one.made);
    EXPECT_EQ(store::createBorderName(db(), {L"None", L""}, L"x", L""), L"");
    EXPECT_EQ(heard([&] { return !store::createBorderName(db(), cor, L"new", L"").empty(); }),
              L"13 1 new");
}

TEST_F(CorrelationTest, hostileNamesStayWhatTheyAre) {
    const NORLEX_propDescription hostile{L"100%_\" ; DROP TABLE correlation; --", L"Гр\\уппа"};
    const std::wstring border = L"Граница %s \"1\" \\ _%";
    ASSERT_TRUE(store::createCorrelationLayer(db(), hostile)) << lastError();
    ASSERT_EQ(store::createBorderName(db(), hostile, border, L"%"), border) << lastError();
    ASSERT_TRUE(store::createBorder(db(), hostile, first, border, 10)) << lastError();
    ASSERT_TRUE(store::moveBorder(db(), hostile, first, border, 12)) << lastError();
    EXPECT_EQ(store::findPoint(db(), hostile, first, 88), border);
    EXPECT_EQ(store::getBorderGroup(db(), hostile, border), L"%");
    EXPECT_FALSE(store::isGroupExist(db(), hostile, L"a"));
    EXPECT_TRUE(NORLEX_well(db(), first).isPropertyExist(hostile));
    ASSERT_TRUE(store::deleteBorder(db(), hostile, first, border)) << lastError();
    ASSERT_TRUE(store::removeCorrelation(db(), hostile));
    std::vector<std::wstring> left;
    store::getBorderList(db(), cor, left);
    EXPECT_EQ(left, (std::vector<std::wstring>{L"top", L"mid", L"base"}));
}

TEST_F(CorrelationTest, bordersAreRenamedWithinTheirCorrelation) {
    ASSERT_TRUE(pick(first, L"top", 10));
    EXPECT_FALSE(store::renameBorder(db(), cor, L"top", L"mid"));
    EXPECT_FALSE(store::renameBorder(db(), cor, L"none", L"new"));
    EXPECT_FALSE(store::renameBorder(db(), cor, L"top", L"'"));
    EXPECT_EQ(heard([&] { return store::renameBorder(db(), cor, L"top", L"roof"); }),
              L"7 4 G Cor; 13 3 top roof");
    EXPECT_EQ(picks(first), L"10 roof");
}

TEST_F(CorrelationTest, deletedBordersTakeTheirPicksAlong) {
    ASSERT_TRUE(pick(first, L"top", 10) && pick(second, L"top", 20) && pick(first, L"mid", 30));
    EXPECT_EQ(heard([&] { return store::deleteBorder(db(), cor, L"top"); }),
              L"7 4 G Cor; 13 2 top");
    EXPECT_EQ(picks(first), L"30 mid");
    EXPECT_EQ(cell(L"SELECT count(*) FROM correlation_data"), L"1");
    EXPECT_FALSE(store::deleteBorder(db(), cor, L"top"));
}

TEST_F(CorrelationTest, borderNamesAreKnownInFourWays) {
    ASSERT_TRUE(store::createCorrelationLayer(db(), {L"Empty", L"G"}));
    ASSERT_TRUE(pick(first, L"top", 10));
    EXPECT_TRUE(store::isBorderNameExist(db(), cor, L"top"));
    EXPECT_FALSE(store::isBorderNameExist(db(), {L"Empty", L"G"}, L"top"));
    EXPECT_TRUE(store::isBorderNameExist(db(), store::getCorrelationID(db(), cor), L"mid"));
    EXPECT_TRUE(store::isBorderNameExist(db(), L"base"));
    EXPECT_FALSE(store::isBorderNameExist(db(), L"roof"));
    EXPECT_TRUE(store::isBorderNameExist(db(), cor, first, L"top"));
    EXPECT_FALSE(store::isBorderNameExist(db(), cor, first, L"mid"));
    EXPECT_FALSE(store::isBorderNameExist(db(), cor, namesake, L"top"));
}

TEST_F(CorrelationTest, groupsHoldBorders) {
    const auto id = store::getCorrelationID(db(), cor);
    const auto groups = [&] {
        std::vector<std::wstring> out;
        store::getGroupListBase(db(), id, out);
        std::wstring text;
        for (const auto& one : out)
            text += one + L";";
        return text;
    };
    const auto inGroup = [&](const std::wstring& group) {
        std::vector<correlation::borderName> out;
        store::getBordersForGroupBase(db(), id, group, out);
        std::wstring text;
        for (const auto& one : out)
            text += one.name + L";";
        return text;
    };
    EXPECT_EQ(groups(), L"a;");
    EXPECT_EQ(heard([&] { return store::moveBorderElementToGroup(db(), cor, L"mid", L"b"); }),
              L"7 4 G Cor");
    EXPECT_EQ(groups() + inGroup(L"a") + inGroup(L"b"), L"a;b;top;base;mid;");
    EXPECT_FALSE(store::renameGroup(db(), cor, L"a", L"b")); // two groups would become one
    EXPECT_FALSE(store::renameGroup(db(), cor, L"none", L"c"));
    EXPECT_TRUE(store::renameGroup(db(), cor, L"a", L"c"));
    EXPECT_EQ(inGroup(L"c"), L"top;base;");
    EXPECT_FALSE(store::isGroupExist(db(), cor, L"a"));
    EXPECT_FALSE(store::moveBorderElementToGroup(db(), cor, L"none", L"b"));
}

TEST_F(CorrelationTest, picksOfAGroupAreDeletedOnChosenWells) {
    ASSERT_TRUE(store::moveBorderElementToGroup(db(), cor, L"base", L"b"));
    for (const auto& well : {first, second})
        ASSERT_TRUE(pick(well, L"top", 10) && pick(well, L"mid", 20) && pick(well, L"base", 30));
    EXPECT_FALSE(store::deleteBordersFromGroup(db(), cor, L"none", {1}));
    EXPECT_TRUE(store::deleteBordersFromGroup(
        db(), cor, L"a", {NORLEX_well::getID(db(), second), NORLEX_well::getID(db(), namesake)}));
    EXPECT_EQ(picks(first) + L" | " + picks(second), L"10 top, 20 mid, 30 base | 30 base");
}

TEST_F(CorrelationTest, listsTellWellsAndBorders) {
    ASSERT_TRUE(pick(namesake, L"top", 30) && pick(first, L"top", 20) && pick(first, L"base", 10));
    std::vector<NORLEX_wellDescription> wells;
    store::getWellListForBorder(db(), cor, L"top", wells);
    EXPECT_EQ(wells, (std::vector{first, namesake}));
    EXPECT_EQ(store::getBorderNameWellCount(db(), cor, L"top"), 2U);
    EXPECT_EQ(store::getBorderNameWellCount(db(), cor, L"mid"), 0U);
    std::vector<std::wstring> names;
    store::getBorderList(db(), cor, first, names);
    EXPECT_EQ(names, (std::vector<std::wstring>{L"base", L"top"})); // from the top down
    store::getBorderList(db(), cor, NORLEX_well(db(), namesake), names);
    EXPECT_EQ(names, std::vector<std::wstring>{L"top"});
    store::getCorrelationListForWell(db(), first, names);
    EXPECT_EQ(names, std::vector<std::wstring>{L"Cor"});
    store::getCorrelationListForWell(db(), second, names);
    EXPECT_TRUE(names.empty());
}

TEST_F(CorrelationTest, zonesLieBetweenBorders) {
    ASSERT_TRUE(
        db()->exec(L"INSERT INTO zones (top_name, bot_name, name) VALUES ('top', 'base', 'pay')"));
    std::wstring top, bottom;
    EXPECT_TRUE(store::getZoneBorders(db(), L"pay", top, bottom));
    EXPECT_EQ(top + L"-" + bottom, L"top-base");
    EXPECT_FALSE(store::getZoneBorders(db(), L"none", top, bottom));
}

} // namespace

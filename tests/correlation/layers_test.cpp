// Correlations as a whole, and their mirrors on the wells.
#include "tests/correlation/correlation_fixture.h"

namespace {

constexpr const wchar_t* rowsOfAll =
    L"SELECT (SELECT count(*) FROM correlation_data), (SELECT count(*) FROM correlation_borders), (SELECT count(*) FROM correlation), (SELECT count(*) FROM field WHERE pr_id IN (SELECT pr_id FROM property)), (SELECT count(*) FROM property), (SELECT count(*) FROM meta WHERE m_group = 'property')";

TEST_F(CorrelationTest, existsOnceByItsName) {
    const std::wstring before =
        row(L"SELECT count(*), max(UUID), max(update_date) FROM correlation");
    EXPECT_TRUE(store::createCorrelationLayer(db(), cor));
    EXPECT_TRUE(store::createCorrelationLayer(db(), {L"C'or", L"other"}));
    EXPECT_EQ(row(L"SELECT count(*), max(UUID), max(update_date) FROM correlation"), before);
    EXPECT_FALSE(store::createCorrelationLayer(db(), {L"''", L""}));
    EXPECT_FALSE(store::createCorrelationLayer(nullptr, cor));
    std::vector<std::wstring> all{L"stale"};
    store::getCorrelationList(db(), all);
    EXPECT_EQ(all, std::vector<std::wstring>{L"Cor"});
    EXPECT_TRUE(store::isCorrelationExist(db(), {L"Cor", L"any"}));
    EXPECT_FALSE(store::isCorrelationExist(db(), {L"cor", L"G"}));
    EXPECT_EQ(store::getCorrelationID(db(), {L"None", L""}), 0);
}

TEST_F(CorrelationTest, mirrorComesWithTheFirstPickOfAWell) {
    EXPECT_EQ(cell(L"SELECT count(*) FROM property"), L"0");
    ASSERT_TRUE(pick(first, L"top", 10) && pick(first, L"mid", 20)) << lastError();
    NORLEX_well well(db(), first);
    const auto mirror = well.openProperty(cor);
    ASSERT_TRUE(mirror) << lastError();
    EXPECT_EQ(mirror->getType(), NORLEX_dataTypeBorder);
    EXPECT_EQ(all(L"SELECT name FROM field ORDER BY f_id"), L"Название,Группа,fld_border_type");
    EXPECT_EQ(mirror->getRecordCount(), 2U);
    EXPECT_EQ(mirror->getValue(0, 0) + L"/" + mirror->getValue(1, 0), L"top/a");
    ASSERT_TRUE(pick(first, L"base", 30));
    EXPECT_EQ(mirror->getRecordCount(), 3U); // an open property follows
    EXPECT_EQ(cell(L"SELECT count(*) FROM property"), L"1");
}

TEST_F(CorrelationTest, mirrorMadeElsewhereGetsTheFieldOfTheType) {
    ASSERT_TRUE(NORLEX_wellProperty::create(
        db(), NORLEX_well::getID(db(), first), NORLEX_dataTypeBorder, cor));
    ASSERT_TRUE(pick(first, L"top", 10)) << lastError();
    EXPECT_EQ(
        row(L"SELECT (SELECT count(*) FROM property), (SELECT count(*) FROM field WHERE name = 'fld_border_type')"),
        L"1 1");
}

TEST_F(CorrelationTest, mirrorsKeepToOneGroupAndKind) {
    ASSERT_TRUE(NORLEX_well(db(), second).createProperty(NORLEX_dataTypeMarker, cor));
    EXPECT_FALSE(pick(second, L"top", 10));
    EXPECT_NE(lastError().find("another kind"), std::string::npos) << lastError();
    ASSERT_TRUE(pick(first, L"top", 10));
    for (const auto& well : {first, namesake}) {
        EXPECT_FALSE(store::createBorder(db(), {L"Cor", L"H"}, well, L"mid", 20));
        EXPECT_NE(lastError().find("\"G\" already"), std::string::npos) << lastError();
    }
    EXPECT_EQ(cell(L"SELECT count(*) FROM correlation_data"), L"1");
    std::vector<std::wstring> groups;
    store::getMirrorGroupList(db(), {L"Cor", L""}, groups);
    EXPECT_EQ(groups, std::vector<std::wstring>{L"G"});
}

TEST_F(CorrelationTest, renameMovesTheMirrorsOfAllWells) {
    ASSERT_TRUE(pick(first, L"top", 10) && pick(second, L"top", 20));
    ASSERT_TRUE(NORLEX_well(db(), namesake).createProperty(NORLEX_dataTypeMarker, cor));
    ASSERT_TRUE(NORLEX_well(db(), namesake).createProperty(NORLEX_dataTypeMarker, {L"Tops", L"x"}));
    ASSERT_TRUE(store::createCorrelationLayer(db(), {L"Other", L"G"}));
    NORLEX_well well(db(), first);
    const auto open = well.openProperty(cor);
    for (const auto* taken : {L"Other", L"Tops", L"''"}) {
        EXPECT_FALSE(store::rename(db(), cor, taken));
        EXPECT_EQ(all(L"SELECT distinct name FROM property ORDER BY name"), L"Cor,Tops");
        EXPECT_TRUE(store::isCorrelationExist(db(), cor));
    }
    EXPECT_FALSE(store::rename(db(), {L"None", L"G"}, L"New"));
    EXPECT_EQ(heard([&] { return store::rename(db(), cor, L"Cor"); }), L"");
    EXPECT_EQ(heard([&] { return store::rename(db(), cor, L"N'ew"); }), L"8 3 G Cor New");
    EXPECT_EQ(open->getName(), L"New");
    EXPECT_EQ(picks(second, NORLEX_dataDirectionMeasured, L"New"), L"20 top");
    EXPECT_FALSE(store::isCorrelationExist(db(), cor));
    // the markers of the old name are no mirror
    EXPECT_TRUE(NORLEX_well(db(), namesake).isPropertyExist(cor));
    EXPECT_EQ(NORLEX_well(db(), namesake).getPropertyCount(), 2);
}

TEST_F(CorrelationTest, removalLeavesNothing) {
    const std::wstring empty = L"0 0 0 0 0 0";
    ASSERT_TRUE(pick(first, L"top", 10) && pick(second, L"mid", 20));
    NORLEX_well well(db(), first);
    const auto mirror = well.openProperty(cor);
    ASSERT_TRUE(mirror->setAttribute(L"k", L"v"));
    EXPECT_EQ(row(rowsOfAll), L"2 3 1 6 2 1");
    EXPECT_FALSE(store::removeCorrelation(db(), {L"None", L"G"}));
    // the group of the mirrors counts for nothing: a correlation that is gone has none
    EXPECT_EQ(heard([&] {
                  return store::removeCorrelation(db(), {L"Cor", L"H"});
              }),
              L"2 2 G Cor; 2 2 H Cor");
    EXPECT_EQ(row(rowsOfAll), empty);
    EXPECT_FALSE(mirror->isOK());
    std::vector<NORLEX_checkFinding> findings;
    EXPECT_TRUE(container->check(findings));
    EXPECT_TRUE(findings.empty());
}

TEST_F(CorrelationTest, correlationsWithTheSameBordersDoNotTouchEachOther) {
    const NORLEX_propDescription twin{L"Twin", L"G"};
    ASSERT_TRUE(store::createCorrelationLayer(db(), twin));
    for (const auto* border : {L"top", L"mid", L"base"})
        ASSERT_EQ(store::createBorderName(db(), twin, border, L"a"), border);
    for (const auto* border : {L"top", L"mid"})
        ASSERT_TRUE(pick(first, border, 10) && store::createBorder(db(), twin, first, border, 10));
    const auto keys = std::vector{NORLEX_well::getID(db(), first)};
    ASSERT_TRUE(store::moveBorder(db(), cor, first, L"top", 5)
                && store::setBorderType(db(), cor, first, L"top", 7)
                && store::renameBorder(db(), cor, L"mid", L"middle")
                && store::deleteBorder(db(), cor, first, L"middle")
                && store::renameGroup(db(), cor, L"a", L"b")
                && store::deleteBordersFromGroup(db(), cor, L"b", keys)
                && store::deleteBorderFromAllWells(db(), cor, L"top")
                && store::deleteBorder(db(), cor, L"top") && store::clearWell(db(), cor, first))
        << lastError();
    EXPECT_EQ(picks(first), L"");
    EXPECT_EQ(picks(first, NORLEX_dataDirectionMeasured, L"Twin"), L"10 top, 10 mid");
    EXPECT_EQ(store::getBorderNameWellCount(db(), twin, L"top"), 1U);
    EXPECT_EQ(store::getBorderGroup(db(), twin, L"mid"), L"a");
    ASSERT_TRUE(store::removeCorrelation(db(), cor));
    EXPECT_EQ(picks(first, NORLEX_dataDirectionMeasured, L"Twin"), L"10 top, 10 mid");
    EXPECT_TRUE(NORLEX_well(db(), first).isPropertyExist(twin));
}

TEST_F(CorrelationTest, clearingAWellLeavesTheOthers) {
    for (const auto& well : {first, second, namesake})
        ASSERT_TRUE(pick(well, L"top", 10));
    EXPECT_EQ(heard([&] { return store::clearWell(db(), cor, namesake); }), L"2 2 other W-1 G Cor");
    EXPECT_EQ(picks(namesake), L"");
    EXPECT_FALSE(NORLEX_well(db(), namesake).isPropertyExist(cor));
    EXPECT_EQ(picks(first) + L", " + picks(second), L"10 top, 10 top");
    EXPECT_EQ(row(rowsOfAll), L"2 3 1 6 2 0");
    EXPECT_FALSE(store::clearWell(db(), cor, {NORLEX_wellDescription{L"O", L"", L"W-1", 0}}));
}

TEST_F(CorrelationTest, depthRangeIsOfTheCorrelationOrOfOneWell) {
    NORLEX_depthRange range;
    EXPECT_FALSE(store::getDepthRange(db(), cor, range));
    ASSERT_TRUE(pick(first, L"top", 10) && pick(first, L"base", 300) && pick(second, L"top", 5));
    ASSERT_TRUE(store::getDepthRange(db(), cor, range));
    EXPECT_EQ(range.top, 5);
    EXPECT_EQ(range.bot, 300);
    EXPECT_EQ(range.topAbs, 90); // of the first well: the second one's top is at 45
    EXPECT_EQ(range.botAbs, -150);
    ASSERT_TRUE(store::getDepthRange(db(), cor, second, range));
    EXPECT_EQ(range.topAbs, 45);
    EXPECT_EQ(range.bot, 5);
    EXPECT_FALSE(store::getDepthRange(db(), cor, namesake, range));
}

TEST_F(CorrelationTest, changesAreStampedAndWritten) {
    ASSERT_TRUE(db()->exec(L"UPDATE correlation SET update_date = 'old'"));
    ASSERT_TRUE(db()->exec(L"UPDATE correlation_borders SET update_date = 'old'"));
    ASSERT_TRUE(pick(first, L"mid", 10));
    EXPECT_EQ(all(L"SELECT name FROM correlation_borders WHERE update_date <> 'old'"), L"mid");
    EXPECT_EQ(all(L"SELECT name FROM correlation WHERE update_date <> 'old'"), L"Cor");
    EXPECT_EQ(
        cell(L"SELECT count(*) FROM correlation_borders WHERE UUID <> '' AND create_user <> ''"),
        L"3");
}

} // namespace

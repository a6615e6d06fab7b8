// The intervals of a property on a list of wells.
#include "NORLEX_corInterval.h"
#include "tests/correlation/correlation_fixture.h"

namespace {

constexpr double unknown = NORLEX_unknownDepth;

class CorIntervalTest : public CorrelationTest {
protected:
    void SetUp() override {
        CorrelationTest::SetUp();
        if (IsSkipped())
            return;
        for (const auto& well : {first, namesake})
            ASSERT_TRUE(NORLEX_well(db(), well).createProperty(NORLEX_dataTypeInterval, zones));
        // absolute: 90 to 80, 80 to 60, -110 to -150
        add(first, 10, 20);
        add(first, 20, 40);
        add(first, 220, 300);
        add(namesake, 500, 600);
        // another property of the well, which is never meant
        ASSERT_TRUE(NORLEX_well(db(), first).createProperty(NORLEX_dataTypeInterval, {L"Z", L"H"}));
        NORLEX_well well(db(), first);
        ASSERT_TRUE(well.openProperty({L"Z", L"H"})
                        ->createPlastCommit(0, 1000, unknown, unknown, {L"", L""}));
    }

    void add(const NORLEX_wellDescription& of, double top, double bottom) const {
        NORLEX_well well(db(), of);
        ASSERT_TRUE(well.openProperty(zones)->createPlastCommit(
            top, bottom, unknown, unknown, {L"name", L"text"}));
    }

    [[nodiscard]] NORLEX_corInterval open(NORLEX_dataDirection direction) const {
        return NORLEX_corInterval(
            container->getContDescription(), {first, second, namesake}, zones, direction);
    }

    [[nodiscard]] static std::wstring all(const NORLEX_corInterval& intervals,
                                          std::size_t well = 0) {
        std::vector<NORLEX_corInterval::interval> found;
        if (!intervals.getIntervals(well, found))
            return L"none";
        std::wstring out;
        for (const auto& [top, bottom] : found)
            out += (out.empty() ? L"" : L", ") + shortest(top) + L".." + shortest(bottom);
        return out;
    }

    const NORLEX_propDescription zones{L"Z", L"G"};
};

TEST_F(CorIntervalTest, depthsAreLookedAtInEitherDirection) {
    auto intervals = open(NORLEX_dataDirectionMeasured);
    ASSERT_TRUE(intervals.isOK());
    struct {
        double from, to;
        bool object, border;
    } const measured[] = {
        {0, 9.9, false, false},
        {0, 10, true, true},
        {12, 18, true, false},
        {18, 12, true, false},
        {15, 25, true, true},
        {40, 220, true, true},
        {41, 219, false, false},
        {250, 250, true, false},
        {0, 1000, true, true},
        {300, 300, true, true},
        {301, 400, false, false},
    };
    for (const auto& one : measured) {
        EXPECT_EQ(intervals.isObjectAtDepth(0, one.from, one.to), one.object)
            << one.from << " " << one.to;
        EXPECT_EQ(intervals.isBorderAtDepth(0, one.from, one.to), one.border)
            << one.from << " " << one.to;
        // the same depths in the other direction: vertical to 200, then 2 along are 1 down
        const auto absolute = [](double d) { return d <= 200 ? 100 - d : -100 - (d - 200) / 2; };
        intervals.setDataDirection(NORLEX_dataDirectionAbsolute);
        EXPECT_EQ(intervals.isObjectAtDepth(0, absolute(one.from), absolute(one.to)), one.object)
            << one.from;
        EXPECT_EQ(intervals.isBorderAtDepth(0, absolute(one.from), absolute(one.to)), one.border)
            << one.from;
        intervals.setDataDirection(NORLEX_dataDirectionMeasured);
    }
    EXPECT_FALSE(intervals.isObjectAtDepth(0, std::nan(""), 15));
    EXPECT_FALSE(intervals.isObjectAtDepth(1, 0, 1000)); // a well without the property
    EXPECT_FALSE(intervals.isObjectAtDepth(3, 0, 1000));
    EXPECT_TRUE(intervals.isObjectAtDepth(2, 550, 550));
    EXPECT_FALSE(intervals.isObjectAtDepth(2, 10, 20)); // of the well of the same name
}

TEST_F(CorIntervalTest, intervalsComeFromTheTopDown) {
    auto intervals = open(NORLEX_dataDirectionMeasured);
    EXPECT_EQ(all(intervals), L"10..20, 20..40, 220..300");
    intervals.setDataDirection(NORLEX_dataDirectionAbsolute);
    EXPECT_EQ(all(intervals), L"90..80, 80..60, -110..-150");
    EXPECT_EQ(all(intervals, 1) + L"|" + all(intervals, 3), L"|none");
    intervals.updateWellList({namesake});
    EXPECT_EQ(all(intervals) + L"|" + all(intervals, 1), L"-500..-600|none");
}

TEST_F(CorIntervalTest, intervalAroundADepthIsFound) {
    auto intervals = open(NORLEX_dataDirectionMeasured);
    double top = 0.0;
    double bottom = 0.0;
    struct {
        double depth, top; // 0: there is none
    } const cases[] = {{15, 10}, {10, 10}, {20, 20}, {40, 20}, {41, 0}, {300, 220}, {301, 0}};
    for (const auto& one : cases) {
        const bool found = intervals.foundInterval(0, one.depth, top, bottom);
        EXPECT_EQ(found ? top : 0.0, one.top) << one.depth;
    }
    intervals.setDataDirection(NORLEX_dataDirectionAbsolute);
    ASSERT_TRUE(intervals.foundInterval(0, -120, top, bottom));
    EXPECT_EQ(top, -110);
    EXPECT_EQ(bottom, -150);
    EXPECT_FALSE(intervals.foundInterval(3, 15, top, bottom));
}

TEST_F(CorIntervalTest, addedIntervalsHaveEmptyValuesAndBothDepths) {
    auto intervals = open(NORLEX_dataDirectionAbsolute);
    ASSERT_TRUE(intervals.addInterval(0, -160, -200)) << lastError();
    intervals.setDataDirection(NORLEX_dataDirectionMeasured);
    ASSERT_TRUE(intervals.addInterval(0, 60, 50)) << lastError();
    EXPECT_EQ(all(intervals), L"10..20, 20..40, 50..60, 220..300, 320..400");
    EXPECT_EQ(row(L"SELECT top_abs, bot_abs FROM interval_data WHERE top = 50"), L"50 40");
    EXPECT_EQ(
        cell(
            L"SELECT count(*) FROM val WHERE value = '' AND obj_id IN (SELECT obj_id FROM interval_data WHERE top IN (50, 320))"),
        L"4");
    EXPECT_FALSE(intervals.addInterval(1, 1, 2)); // no such property
    EXPECT_FALSE(intervals.addInterval(3, 1, 2));
    EXPECT_FALSE(intervals.addInterval(0, 1, std::nan("")));
}

TEST_F(CorIntervalTest, bordersMoveTogether) {
    auto intervals = open(NORLEX_dataDirectionMeasured);
    NORLEX_well well(db(), first);
    const auto watched = well.openProperty(zones);
    ASSERT_EQ(watched->getRecords()[1].top, 20);
    ASSERT_TRUE(intervals.moveIntervalBorder(0, 20, 25)) << lastError();
    EXPECT_EQ(all(intervals), L"10..25, 25..40, 220..300");
    EXPECT_EQ(watched->getRecords()[1].top, 25); // another connection's object follows
    for (const double to : {10.0, 40.0, 400.0, std::nan("")}) {
        EXPECT_FALSE(intervals.moveIntervalBorder(0, 25, to)) << to;
        EXPECT_EQ(all(intervals), L"10..25, 25..40, 220..300") << to;
    }
    EXPECT_FALSE(intervals.moveIntervalBorder(0, 24.9, 30));
    intervals.setDataDirection(NORLEX_dataDirectionAbsolute);
    ASSERT_TRUE(intervals.moveIntervalBorder(0, -150, -200)) << lastError();
    EXPECT_EQ(all(intervals), L"90..75, 75..60, -110..-200");
    intervals.setDataDirection(NORLEX_dataDirectionMeasured);
    EXPECT_EQ(all(intervals), L"10..25, 25..40, 220..400");
}

TEST_F(CorIntervalTest, intervalsAreDeletedWithTheirValues) {
    auto intervals = open(NORLEX_dataDirectionMeasured);
    NORLEX_well well(db(), first);
    const auto property = well.openProperty(zones);
    ASSERT_TRUE(property->setLink(0, property->getRecords()[0].obj_id, L"f", L""));
    EXPECT_FALSE(intervals.delInterval(0, 41));
    EXPECT_FALSE(intervals.delInterval(3, 15));
    ASSERT_TRUE(intervals.delInterval(0, 15)) << lastError();
    EXPECT_EQ(all(intervals), L"20..40, 220..300");
    EXPECT_EQ(property->getRecordCount(), 2U);
    intervals.setDataDirection(NORLEX_dataDirectionAbsolute);
    ASSERT_TRUE(intervals.delInterval(0, -120)) << lastError();
    EXPECT_EQ(all(intervals), L"80..60");
    EXPECT_EQ(
        row(L"SELECT (SELECT count(*) FROM interval_data), (SELECT count(*) FROM val), (SELECT count(*) FROM prop_link)"),
        L"3 6 0");
    EXPECT_EQ(all(intervals, 2), L"-500..-600");
}

TEST_F(CorIntervalTest, containerThatCannotBeOpenedAnswersFalse) {
    const NORLEX_corInterval intervals(
        NORLEX_wellContainer::makeDescription(folder / L"none.well2"),
        {first},
        zones,
        NORLEX_dataDirectionMeasured);
    EXPECT_FALSE(intervals.isOK());
    EXPECT_FALSE(intervals.isObjectAtDepth(0, 10, 20));
    EXPECT_EQ(all(intervals), L"none");
}

} // namespace

#include "tests/wells/well_fixture.h"

#include <cmath>
#include <limits>

namespace {
constexpr double infinity = std::numeric_limits<double>::infinity();
}

TEST_F(WellTest, positionsKeepEveryDigit) {
    for (const double value : {0.1, -1.0 / 3.0, 1e300, 5e-324, 6543210.987654321, -0.0}) {
        auto w = well();
        ASSERT_TRUE(w.setXCoord(value) && w.setYCoord(-value) && w.setAltitude(value / 2));
        EXPECT_EQ(w.getXCoord(), value);
        EXPECT_EQ(NORLEX_well::getYCoord(db(), names), -value);
        EXPECT_EQ(NORLEX_well::getAltitude(db(), names), value / 2);
    }
    auto w = well();
    ASSERT_TRUE(w.setPosition(1.5, 2.5, 3.5));
    EXPECT_EQ(w.getIncl()->getAltitude(), 3.5);
    ASSERT_TRUE(NORLEX_well::setPosition(db(), names, 7, 8));
    EXPECT_EQ(w.getXCoord(), 7.0);
    EXPECT_EQ(w.getYCoord(), 8.0);
    EXPECT_EQ(w.getAltitude(), 3.5);
    EXPECT_FALSE(NORLEX_well::setPosition(db(), {L"O", L"F", L"none", 0}, 7, 8));
}

TEST_F(WellTest, numbersThatAreNotFiniteAreRefused) {
    auto w = well();
    ASSERT_TRUE(w.setPosition(1, 2, 3));
    ASSERT_TRUE(w.setBottom(4));
    for (const double bad : {std::nan(""), infinity, -infinity}) {
        EXPECT_FALSE(w.setXCoord(bad) || w.setYCoord(bad) || w.setAltitude(bad));
        EXPECT_FALSE(w.setPosition(bad, 1) || w.setPosition(1, bad, 1) || w.setPosition(1, 1, bad));
        EXPECT_FALSE(NORLEX_well::setPosition(db(), names, 1, bad));
        EXPECT_FALSE(w.setBottom(bad));
        EXPECT_NE(lastError().find("finite"), std::string::npos);
        EXPECT_FALSE(w.loadInclFromData({station(1, 1, bad)}, true));
        EXPECT_FALSE(w.loadInclFromData({station(1, 1, 1), station(bad, 1, 1)}, true));
    }
    EXPECT_EQ(row(L"SELECT x, y, altitude, bottom FROM well_base"), L"1 2 3 4");
    EXPECT_EQ(cell(L"SELECT count(*) FROM inclinometry"), L"0");
}

TEST_F(WellTest, bottomIsTheStoredOneOrTheDeepestKnown) {
    auto w = well();
    EXPECT_EQ(w.getBottom(), 0.0) << "nothing is known";
    ASSERT_TRUE(w.loadInclFromData({station(0, 0, 0), station(25, 0, 0)}, true));
    EXPECT_EQ(w.getBottom(), 25.0) << "the survey";
    ASSERT_TRUE(makeLog({L"GR", L""}));
    EXPECT_EQ(w.getBottom(), 30.0) << "the log reaches 30";
    ASSERT_TRUE(w.setBottom(12.345678));
    EXPECT_EQ(w.getBottom(), 12.35);
    EXPECT_EQ(NORLEX_well::getBottomBaseValue(db(), names), 12.35);
    ASSERT_TRUE(w.resetBottom());
    EXPECT_EQ(w.getBottomBaseValue(), 0.0);
    EXPECT_EQ(cell(L"SELECT bottom FROM well_base"), L"");
    EXPECT_EQ(w.getBottom(), 30.0);
}

// Altitude 100; from 100 down the hole leans 30 degrees to the east: a metre along it is
// cos 30 = 0.8660254 down and 0.5 east.
TEST_F(WellTest, surveyAndLogsFollowTheAltitude) {
    auto w = well();
    ASSERT_TRUE(w.setAltitude(100));
    ASSERT_TRUE(w.setPosition(1000, 2000));
    ASSERT_TRUE(w.loadInclFromData({station(0, 0, 0), station(100, 30, 90)}, true)) << lastError();
    const NORLEX_propDescription gr(L"GR", L"LAS");
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(
        db(), w.getID(), gr, L"", {{50, 0, 1}, {150, 0, NORLEX_missingValue}}));
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeLog, {L"empty", L""})) << "a log without samples";

    ASSERT_TRUE(w.setAltitude(200)) << lastError();
    std::vector<NORLEX_logSample> samples;
    ASSERT_TRUE(w.openProperty(gr)->getSamples(samples));
    EXPECT_NEAR(samples[0].depthAbs, 150.0, 1e-9);
    EXPECT_NEAR(samples[1].depthAbs, 100.0 - 43.30127, 1e-5);
    EXPECT_EQ(samples[1].depth, 150.0);
    EXPECT_EQ(samples[1].value, NORLEX_missingValue);
    EXPECT_EQ(w.getIncl()->getAbs(0), 200.0);

    double x = 0.0;
    double y = 0.0;
    w.getCoord(200.0 - 100.0 - 86.60254, x, y); // 100 along the leaning part
    EXPECT_NEAR(x, 1050.0, 1e-4);
    EXPECT_NEAR(y, 2000.0, 1e-4);
    w.getCoord(NORLEX_unknownDepth, x, y);
    EXPECT_NEAR(x, 1050.0, 1e-4);

    ASSERT_TRUE(w.clearIncl());
    ASSERT_TRUE(w.openProperty(gr)->getSamples(samples));
    EXPECT_EQ(samples[1].depthAbs, 50.0);
    w.getCoord(0.0, x, y);
    EXPECT_EQ(x, 1000.0) << "a vertical well stays under its head";

    // the survey cannot be read at all: the answer is the head itself, not twice that
    ASSERT_TRUE(db()->exec(L"ALTER TABLE inclinometry RENAME TO elsewhere"));
    well().getCoord(0.0, x, y);
    EXPECT_EQ(x, 1000.0);
    EXPECT_EQ(y, 2000.0);
}

TEST_F(WellTest, markersIntervalsAndPicksFollowTheSurvey) {
    auto w = well();
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeMarker, {L"M", L""}));
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeColumn, {L"C", L""}));
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeBorder, {L"cor", L""}));
    const auto run = [this](const std::wstring& text) { ASSERT_TRUE(db()->exec(text)); };
    run(L"INSERT INTO correlation (cor_id, name) VALUES (1, 'cor')");
    run(L"INSERT INTO correlation_borders (b_id, cor_id, name) VALUES (1, 1, 'b')");
    run(L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs) VALUES (1, 1, 5, 0)");
    run(L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs) VALUES (2, 1, 5, 0)");
    run(L"INSERT INTO point_data (depth, depth_abs, type) VALUES (40, 0, 3)");
    run(L"INSERT INTO point_data (depth, depth_abs, type) VALUES (2000000, -7, 0)");
    run(L"INSERT INTO interval_data (top, bot, top_abs, bot_abs) VALUES (10, 20.5, 0, 0)");
    const auto marker = w.openProperty({L"M", L""});
    for (const auto& field : marker->getFields())
        for (const auto* record : {L"1", L"2"})
            run(L"INSERT INTO val (f_id, value, obj_id) VALUES (" + std::to_wstring(field.fieldId)
                + L", '', " + record + L")");
    const auto column = w.openProperty({L"C", L""});
    for (const auto& field : column->getFields())
        run(L"INSERT INTO val (f_id, value, obj_id) VALUES (" + std::to_wstring(field.fieldId)
            + L", '', 1)");
    EXPECT_EQ(w.openProperty({L"M", L""})->getRecordCount(), 2U);
    EXPECT_EQ(w.openProperty({L"C", L""})->getRecordCount(), 1U);
    EXPECT_EQ(w.openProperty({L"cor", L""})->getRecordCount(), 1U);

    ASSERT_TRUE(w.setAltitude(100)) << lastError();
    EXPECT_EQ(row(L"SELECT depth, depth_abs, type FROM point_data ORDER BY obj_id"), L"40 60 3");
    EXPECT_EQ(cell(L"SELECT depth_abs FROM point_data WHERE obj_id = 2"), L"-7") << "unknown";
    EXPECT_EQ(row(L"SELECT top, bot, top_abs, bot_abs FROM interval_data"), L"10 20.5 90 79.5");
    EXPECT_EQ(cell(L"SELECT depth_abs FROM correlation_data WHERE w_id = 1"), L"95");
    EXPECT_EQ(cell(L"SELECT depth_abs FROM correlation_data WHERE w_id = 2"), L"0");
}

TEST_F(WellTest, aSurveyIsStoredWholeOrNotAtAll) {
    auto w = well();
    ASSERT_TRUE(w.loadInclFromData({station(0, 0, 0), station(10.004, 1.23456, 2)}, false));
    EXPECT_EQ(w.getIncl()->getDataCount(), 2U);
    EXPECT_EQ(row(L"SELECT depth, angle FROM inclinometry WHERE depth > 0"), L"10 1.2346");
    EXPECT_TRUE(w.checkIncl());

    // the damaged samples cannot follow a new survey, so it is not taken
    ASSERT_TRUE(makeLog({L"GR", L""}));
    {
        const auto file = files::openWrite(samplePath({L"GR", L""}));
        ASSERT_TRUE(files::put(file.get(), "damaged"));
    }
    EXPECT_FALSE(
        w.loadInclFromData({station(0, 0, 0), station(50, 1, 1), station(60, 1, 1)}, false));
    EXPECT_NE(lastError().find("GR.wpdb"), std::string::npos);
    EXPECT_EQ(w.getIncl()->getDataCount(), 2U) << "memory follows the rows back";
    EXPECT_EQ(cell(L"SELECT count(*) FROM inclinometry"), L"2");
    EXPECT_FALSE(w.setAltitude(5));
    EXPECT_EQ(w.getIncl()->getAltitude(), 0.0);
    ASSERT_TRUE(w.removeProperty({L"GR", L""}));

    ASSERT_TRUE(w.loadInclFromData({station(0, 90, 0), station(10, 90, 0)}, true));
    EXPECT_TRUE(w.loadInclFromData({station(5, 0, 0), station(5, 0, 0)}, true));
    EXPECT_FALSE(w.checkIncl()) << "a depth that is repeated";
}

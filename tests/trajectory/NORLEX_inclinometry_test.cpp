#include "NORLEX_lastError.h"
#include "tests/trajectory/survey_fixture.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double notNumber = std::numeric_limits<double>::quiet_NaN();

std::vector<double> extremes(const NORLEX_inclinometry& incl) {
    return {incl.getWMaxShift(), incl.getEMaxShift(), incl.getNMaxShift(), incl.getSMaxShift()};
}

} // namespace

// By hand: altitude 100; from 100 down the hole leans 10 degrees, so 1 along it is
// cos 10 = 0.98481 down. Look-ups keep the last station, hence one loop a direction and a last row
// that goes back up.
TEST_F(SurveyTest, convertsDepthsBothWays) {
    auto incl = survey({station(0, 0, 0), station(100, 10, 90), station(200, 10, 90)});
    struct {
        const char* where;
        double depth;
        double absDepth;
    } const cases[] = {
        {"well head", 0.0, 100.0},
        {"on a station", 100.0, 0.0},
        {"inside a leaning interval", 150.0, -49.2404},
        {"below the last station", 300.0, -196.9616},
        {"back up, after a deeper look-up", 50.0, 50.0},
    };
    for (const auto& c : cases)
        EXPECT_NEAR(incl.getAbs(c.depth), c.absDepth, 1e-4) << c.where;
    for (const auto& c : cases)
        EXPECT_NEAR(incl.getReal(c.absDepth), c.depth, 1e-3) << c.where;
    EXPECT_EQ(incl.getAbs(-1.0), 100.0); // above the head: the altitude, in this direction only
    EXPECT_EQ(incl.getReal(101.0), -1.0);
}

// The first test well of the survey error models (SPE 67616): its turning points and two stations
// of its build. It ends horizontal. Expected values were computed from the definition of the
// tangential method, each interval a vector along its upper station's angles, with 30 digits;
// altitude 25.
TEST_F(SurveyTest, followsAPublishedSurvey) {
    run(L"UPDATE well_base SET altitude = 25 WHERE w_id = 7");
    struct {
        double depth, angle, azimuth;
        double absDepth, north, east, elongation;
    } const rows[] = {
        {0, 0, 0, 25.0, 0.0, 0.0, 0.0},
        {1200, 0, 0, -1175.0, 0.0, 0.0, 0.0},
        {1500, 20, 75, -1475.0, 0.0, 0.0, 0.0},
        {1800, 40, 75, -1756.907786, 26.556398, 99.109827, 18.092214},
        {2100, 60, 75, -1986.721119, 76.466101, 285.375373, 88.278881},
        {5100, 60, 75, -3486.721119, 748.897705, 2794.924284, 1588.278881},
        {5400, 90, 75, -3636.721119, 816.140865, 3045.879175, 1738.278881},
        {8000, 90, 75, -3636.721119, 1489.070382, 5557.286323, 4338.278881},
    };
    std::vector<inclData> stations;
    for (const auto& row : rows)
        stations.push_back(station(row.depth, row.angle, row.azimuth));
    auto incl = survey(stations);
    ASSERT_EQ(incl.getDataCount(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_NEAR(incl.getAbsDepthData(i), rows[i].absDepth, 1e-6) << i;
        EXPECT_NEAR(incl.getYShiftData(i), rows[i].north, 1e-6) << i;
        EXPECT_NEAR(incl.getXShiftData(i), rows[i].east, 1e-6) << i;
        EXPECT_NEAR(incl.getUdlData(i), rows[i].elongation, 1e-6) << i;
    }
    // Between stations, by hand: -1756.907786 - 100 cos 40 = -1833.512231; the way out from 1800
    // is 100 sin 40 = 64.278761, of it sin 75 = 62.088516 east and cos 75 = 16.636567 north.
    EXPECT_NEAR(incl.getAbs(1900), -1833.512231, 1e-6);
    EXPECT_NEAR(incl.getReal(-1833.512231), 1900, 1e-5);
    double x = 0.0, y = 0.0;
    incl.getCoordAbs(-1833.512231, x, y);
    EXPECT_NEAR(x, 161.198343, 1e-5);
    EXPECT_NEAR(y, 43.192965, 1e-5);
    EXPECT_NEAR(incl.getAbs(7000), -3636.721119, 1e-6); // level
    EXPECT_GT(incl.getReal(-3700), 1e15);               // 63 / cos 90, no guard
}

// Without rows the synthetic station stands alone; a row at the surface replaces it only when
// three stations are held.
TEST_F(SurveyTest, keepsOrReplacesTheSurfaceStation) {
    struct {
        const char* where;
        std::vector<inclData> rows;
        std::size_t count;
        double firstAngle;
        bool isSurvey;
    } const cases[] = {
        {"no rows", {}, 1, 0, false},
        {"one row, at 0", {station(0, 5, 0)}, 2, 0, true},
        {"one row, below", {station(50, 5, 0)}, 2, 0, true},
        {"two rows from 0", {station(0, 5, 0), station(100, 6, 0)}, 2, 5, true},
        {"two rows from below", {station(50, 5, 0), station(100, 6, 0)}, 3, 0, true},
        {"two rows from 0.01 on", {station(0.01, 5, 0), station(100, 6, 0)}, 3, 0, true},
        {"rows out of order", {station(100, 6, 0), station(0, 5, 0)}, 2, 5, true},
    };
    for (const auto& c : cases) {
        const auto incl = survey(c.rows);
        EXPECT_EQ(incl.getDataCount(), c.count) << c.where;
        EXPECT_EQ(incl.getAngleData(0), c.firstAngle) << c.where;
        EXPECT_EQ(incl.isInclData(), c.isSurvey) << c.where;
        EXPECT_EQ(incl.getAbsDepthData(0), 100.0) << c.where;
    }
}

TEST_F(SurveyTest, isVerticalWithoutRows) {
    auto incl = survey({});
    EXPECT_EQ(incl.getAbs(30.0), 70.0);
    EXPECT_EQ(incl.getReal(70.0), 30.0);
    EXPECT_EQ(extremes(incl), std::vector<double>(4, 0.0));
    double x = 1.0, y = 1.0;
    incl.getCoordAbs(70.0, x, y); // one station is held: an offset, not the head
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(y, 0.0);
}

// A survey that cannot be read leaves no station at all, not even the synthetic one.
TEST_F(SurveyTest, answersFromAltitudeAndHeadWithoutStations) {
    run(L"DROP TABLE inclinometry");
    NORLEX_inclinometry incl(&db, 7);
    EXPECT_EQ(incl.getDataCount(), 0U);
    EXPECT_FALSE(incl.isInclData());
    EXPECT_TRUE(incl.isValid());
    EXPECT_EQ(incl.getAbs(30.0), 70.0);
    EXPECT_EQ(incl.getAbs(-30.0), 100.0);
    EXPECT_EQ(incl.getReal(70.0), 30.0);
    double x = 0.0, y = 0.0;
    incl.getCoordAbs(70.0, x, y);
    EXPECT_EQ(x, 1000.0);
    EXPECT_EQ(y, 2000.0);
    constexpr double most = std::numeric_limits<double>::max();
    EXPECT_EQ(extremes(incl), (std::vector<double>{most, -most, -most, most}));
    incl.setAltitude(50.0);
    EXPECT_EQ(incl.getAbs(30.0), 20.0);

    struct {
        const char* where;
        const wchar_t* change;
        double altitude, x, y;
    } const heads[] = {
        {"two rows: the last", L"INSERT INTO well_base VALUES(7, 10, 20, 30)", 10, 20, 30},
        {"another well's row", L"DELETE FROM well_base WHERE w_id = 7", 0, 0, 0},
    };
    run(L"INSERT INTO well_base VALUES(8, 1, 2, 3)");
    for (const auto& head : heads) {
        run(head.change);
        incl.update();
        EXPECT_EQ(incl.getAltitude(), head.altitude) << head.where;
        incl.getCoordAbs(70.0, x, y);
        EXPECT_EQ(x, head.x) << head.where;
        EXPECT_EQ(y, head.y) << head.where;
    }
}

// By hand: 100 sin 10 = 17.3648 to the east in each of two intervals.
TEST_F(SurveyTest, answersOffsetsAtAnAbsoluteDepth) {
    auto incl = survey({station(0, 10, 90), station(100, 10, 90), station(200, 10, 0)});
    struct {
        const char* where;
        double absDepth, x, y;
    } const cases[] = {
        {"well head", 100.0, 0.0, 0.0},
        {"on a station", 1.519225, 17.3648, 0.0}, // 100 - 98.480775
        {"half an interval down", -47.72116, 26.0472, 0.0},
        {"below the last station", -195.4423, 34.7296, 17.3648},
        {"above the head", 198.48078, -17.3648, 0.0},
        {"the mark of no depth", 2000000.0, -1.0, -1.0},
    };
    for (const auto& c : cases) {
        double x = -1.0, y = -1.0;
        incl.getCoordAbs(c.absDepth, x, y);
        EXPECT_NEAR(x, c.x, 1e-4) << c.where;
        EXPECT_NEAR(y, c.y, 1e-4) << c.where;
    }
}

// By hand: 90 degrees turn measured depth into offset; 100 to each side in turn.
TEST_F(SurveyTest, onlyWidensTheExtremes) {
    auto incl = survey({station(0, 90, 90), station(100, 90, 0), station(200, 90, 0)});
    const auto expectExtremes = [&](double w, double e, double n, double s, const char* where) {
        const std::vector<double> expected{w, e, n, s};
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(extremes(incl)[i], expected[i], 1e-9) << where << ' ' << i;
    };
    // The head itself stays out: the smallest eastward offset is 100.
    expectExtremes(100, 100, 100, 0, "east, then north");
    store(incl, {station(0, 90, 270), station(10, 0, 0)});
    incl.loadInclData();
    expectExtremes(-10, 100, 100, 0, "10 to the west");
    store(incl, {});
    incl.update();
    expectExtremes(0, 0, 0, 0, "one station");
    store(incl, {station(5, 0, 0)});
    incl.update();
    expectExtremes(-10, 100, 100, 0, "one row, and all that was seen before");
}

// Down to 100, up again to 200, down from there: absolute depth 50 is met at 50, 150 and 250. The
// answer depends on the station of the look-up before, of either direction.
TEST_F(SurveyTest, searchesOnFromTheStationLastFound) {
    auto incl = survey({station(0, 0, 0), station(100, 180, 0), station(200, 0, 0)});
    EXPECT_NEAR(incl.getReal(50), 50.0, 1e-9);
    EXPECT_NEAR(incl.getAbs(120), 20.0, 1e-9);
    EXPECT_NEAR(incl.getReal(50), 50.0, 1e-9); // above station 1: from the first station
    EXPECT_NEAR(incl.getAbs(300), 0.0, 1e-9);
    EXPECT_NEAR(incl.getReal(50), 250.0, 1e-9);
    incl.setAltitude(100); // keeps the place
    EXPECT_NEAR(incl.getReal(50), 250.0, 1e-9);
    incl.update(); // begins anew
    EXPECT_NEAR(incl.getReal(50), 50.0, 1e-9);
}

TEST_F(SurveyTest, changesOfTheTableReachMemoryAtTheNextUpdate) {
    auto incl = survey({station(0, 0, 0), station(100, 60, 0)});
    store(incl, {station(0, 60, 0), station(50, 60, 0), station(60, 60, 0)});
    run(L"UPDATE well_base SET altitude = 10, x = 1, y = 2");
    EXPECT_EQ(incl.getDataCount(), 2U);
    EXPECT_EQ(incl.getAbs(100), 0.0);
    incl.update();
    EXPECT_EQ(incl.getAltitude(), 10.0);
    EXPECT_NEAR(incl.getAbs(100), -40.0, 1e-9);

    auto copy = incl;
    copy.setAltitude(500.0); // in memory, of the copy
    EXPECT_NEAR(copy.getAbs(100), 450.0, 1e-9);
    EXPECT_NEAR(copy.getReal(450), 100.0, 1e-9);
    EXPECT_NEAR(incl.getReal(-40), 100.0, 1e-9);
    incl.update();
    EXPECT_EQ(incl.getAltitude(), 10.0);
}

TEST_F(SurveyTest, storesRoundedNumbersAndRefusesOthers) {
    NORLEX_inclinometry incl(&db, 7);
    ASSERT_TRUE(incl.addPoint(1234.567, 0.00007, 359.99996));
    incl.update();
    EXPECT_EQ(incl.getDepthData(1), 1234.57);
    EXPECT_EQ(incl.getAngleData(1), 0.0001);
    EXPECT_EQ(incl.getAzimuthData(1), 360.0);
    EXPECT_EQ(incl.getDepthData(2), 0.0); // past the end
    EXPECT_EQ(incl.getUdlData(2), 0.0);

    const double bad[][3] = {{notNumber, 0, 0}, {1, inf, 0}, {1, 0, -inf}};
    for (const auto& row : bad)
        EXPECT_FALSE(incl.addPoint(row[0], row[1], row[2]));
    EXPECT_NE(NORLEX_lastError().find(L"-inf"), std::wstring::npos);
    incl.update();
    EXPECT_EQ(incl.getDataCount(), 2U);

    ASSERT_TRUE(NORLEX_inclinometry(&db, 8).addPoint(1, 2, 3));
    ASSERT_TRUE(incl.clear()); // of its own well only
    EXPECT_EQ(NORLEX_inclinometry(&db, 7).getDataCount(), 1U);
    EXPECT_EQ(NORLEX_inclinometry(&db, 8).getDataCount(), 2U);
}

TEST_F(SurveyTest, comparesSurveysWithinTolerances) {
    auto incl = survey({station(0, 1, 2), station(100, 10, 90)});
    struct {
        const char* where;
        std::vector<inclData> stations;
        bool same;
    } const cases[] = {
        {"the same", {station(0, 1, 2), station(100, 10, 90)}, true},
        {"depth by 0.009", {station(0, 1, 2), station(100.009, 10, 90)}, true},
        {"depth by 0.011", {station(0, 1, 2), station(100.011, 10, 90)}, false},
        {"angle by 9e-6", {station(0, 1, 2), station(100, 10.000009, 90)}, true},
        {"angle by 1.1e-5", {station(0, 1, 2), station(100, 9.999989, 90)}, false},
        {"azimuth by 9e-6", {station(0, 1, 1.999991), station(100, 10, 90)}, true},
        {"azimuth by 1e-4", {station(0, 1, 2.0001), station(100, 10, 90)}, false},
        {"one less", {station(0, 1, 2)}, false},
        {"one more", {station(0, 1, 2), station(100, 10, 90), station(101, 0, 0)}, false},
        {"not a number", {station(0, 1, 2), station(notNumber, 10, 90)}, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(incl.checIsDataLoaded(c.stations), c.same) << c.where;

    // The synthetic station takes part where it was kept.
    const std::vector<inclData> below{station(50, 1, 2), station(100, 10, 90)};
    auto other = survey(below);
    EXPECT_FALSE(other.checIsDataLoaded(below));
    EXPECT_FALSE(NORLEX_inclinometry::isEqual(&incl, &other));
    incl.update();
    EXPECT_TRUE(NORLEX_inclinometry::isEqual(&incl, &other));
}

TEST_F(SurveyTest, isValidOnlyWhileItGoesDown) {
    struct {
        const char* where;
        std::vector<inclData> rows;
        bool valid;
    } const cases[] = {
        {"no rows", {}, true},
        {"down", {station(0, 0, 0), station(50, 89, 0), station(60, 0, 0)}, true},
        {"a repeated depth", {station(0, 0, 0), station(50, 0, 0), station(50, 0, 0)}, false},
        {"one row at 0", {station(0, 0, 0)}, false},
        {"rising", {station(0, 91, 0), station(50, 0, 0)}, false},
        {"level at its bottom", {station(0, 0, 0), station(50, 90, 0)}, true},
        {"above the head", {station(-5, 0, 0), station(50, 0, 0)}, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(survey(c.rows).isValid(), c.valid) << c.where;
}

// Other programs may have stored finer depths: a first row at 0.0004 replaces the synthetic station
// and leaves nothing above it.
TEST_F(SurveyTest, usesStationZeroAboveTheFirstStation) {
    run(L"INSERT INTO inclinometry VALUES(7, 0.0004, 60, 90), (7, 100, 0, 0)");
    NORLEX_inclinometry incl(&db, 7);
    ASSERT_EQ(incl.getDataCount(), 2U);
    EXPECT_NEAR(incl.getAbs(0.0002), 100.0001, 1e-9); // 0.0002 cos 60 above station 0
    EXPECT_NEAR(incl.getReal(105.0), -9.9996, 1e-9);  // 5 / cos 60 above it
    double x = 0.0, y = 0.0;
    incl.getCoordAbs(105.0, x, y);
    EXPECT_NEAR(x, -8.660254, 1e-6); // -10 sin 60
}

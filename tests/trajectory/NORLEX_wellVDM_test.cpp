#include "NORLEX_lastError.h"
#include "NORLEX_wellVDM.h"
#include "odbc_database.h"
#include "platform/strconv.h"
#include "trajectory/vdm_points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double notNumber = std::numeric_limits<double>::quiet_NaN();

using points = std::vector<std::pair<double, double>>; // depth, time

// Well 7 of altitude 100, in a database that holds only the table of models.
class ModelTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(db.connect(":memory:"));
        run(L"CREATE TABLE vdm_data (dt_id INTEGER PRIMARY KEY AUTOINCREMENT, "
            L"w_id INTEGER NOT NULL, depth DOUBLE PRECISION, time DOUBLE PRECISION)");
    }

    void run(std::wstring_view statement) { ASSERT_TRUE(db.exec(statement)); }

    NORLEX_wellVDM stored(const points& given) {
        NORLEX_wellVDM model(&db, 7, 100.0);
        EXPECT_TRUE(db.begin_transaction());
        EXPECT_TRUE(model.clear());
        for (const auto& [depth, time] : given)
            EXPECT_TRUE(model.add(depth, time));
        EXPECT_TRUE(db.end_transaction());
        return model;
    }

    static points listOf(NORLEX_wellVDM& model) {
        std::vector<vdm_data> list;
        model.getList(list);
        points out;
        for (const auto& point : list)
            out.emplace_back(point.depth, point.time);
        return out;
    }

    static std::string lastError() { return ts::strconv::toUtf8(NORLEX_lastError()); }

    odbc_database db;
};

// The definition, one scan a call.
double scanned(const std::vector<double>& from, const std::vector<double>& to, double at) {
    const std::size_t last = from.size() - 1;
    if (at >= from[0])
        return to[0] + (at - from[0]);
    if (at <= from[last])
        return to[last] + (at - from[last]);
    for (std::size_t i = 0; i < last; ++i)
        if (from[i] >= at && at > from[i + 1])
            return to[i] - (to[i] - to[i + 1]) * (from[i] - at) / (from[i] - from[i + 1]);
    return at;
}

} // namespace

// By hand; altitude 100. Outside of the points a unit of time is a unit of depth.
TEST_F(ModelTest, convertsDepthsAndTimes) {
    const points two = {{-900, -1000}};
    const points bent = {{100, 0}, {0, -100}, {-100, -150}};
    struct {
        const char* where;
        points given;
        double depth;
        double time;
    } const cases[] = {
        {"no points, below the head", {}, 40, -60},
        {"no points, above the head", {}, 130, 30},
        {"inside the only interval", two, -400, -500},
        {"on the head", two, 100, 0},
        {"on the last point", two, -900, -1000},
        {"above the model", two, 110, 10},
        {"below the model", two, -950, -1050},
        {"on a point between two slopes", bent, 0, -100},
        {"in the steeper slope", bent, 50, -50},
        {"in the flatter slope", bent, -50, -125},
    };
    for (const auto& c : cases) {
        auto model = stored(c.given);
        EXPECT_DOUBLE_EQ(model.getTime(c.depth), c.time) << c.where;
        EXPECT_DOUBLE_EQ(model.getDepth(c.time), c.depth) << c.where;
    }
}

TEST_F(ModelTest, beginsAtTheWellHead) {
    struct {
        const char* where;
        points given;
        points expected;
    } const cases[] = {
        {"no points", {}, {{100, 0}}},
        {"nearly at the head", {{99.95, -1}}, {{99.95, -1}}},
        {"at a tenth of a metre", {{100.1, 3}}, {{100.1, 3}}},
        {"below the head", {{99.89, -1}}, {{100, 0}, {99.89, -1}}},
        {"above the head", {{100.2, 1}}, {{100, 0}, {100.2, 1}}},
        {"out of order", {{-20, -5}, {50, -9}}, {{100, 0}, {50, -9}, {-20, -5}}},
    };
    for (const auto& c : cases) {
        auto model = stored(c.given);
        EXPECT_EQ(listOf(model), c.expected) << c.where;
        NORLEX_intervalValue depths{5, 6, L"7"};
        NORLEX_intervalValue times = depths;
        const bool isCovered = c.expected.size() > 1;
        EXPECT_EQ(model.getModelCoverageDepth(depths), isCovered) << c.where;
        EXPECT_EQ(model.getModelCoverageTime(times), isCovered) << c.where;
        EXPECT_EQ(depths.top, isCovered ? c.expected.front().first : 5.0) << c.where;
        EXPECT_EQ(depths.bot, isCovered ? c.expected.back().first : 6.0) << c.where;
        EXPECT_EQ(times.top, isCovered ? c.expected.front().second : 5.0) << c.where;
        EXPECT_EQ(times.bot, isCovered ? c.expected.back().second : 6.0) << c.where;
    }
}

// By hand: 1000 m in 1000 ms there and back are 2000 m/s, 1000 m in 500 ms 4000 m/s, and both
// together 2000 m in 1500 ms.
TEST_F(ModelTest, tellsVelocities) {
    auto model = stored({{-900, -1000}, {-1900, -1500}});
    std::vector<NORLEX_vdmItem> items;
    model.getVDModel(items, false);
    ASSERT_EQ(items.size(), 2U);
    const auto& lower = items[1];
    EXPECT_EQ(items[0].topDepth, 100);
    EXPECT_DOUBLE_EQ(items[0].intervalVelocity, 2000);
    EXPECT_DOUBLE_EQ(items[0].averageVelocity, 2000);
    EXPECT_EQ((std::vector{lower.topDepth, lower.botDepth, lower.topTime, lower.botTime}),
              (std::vector{-900.0, -1900.0, -1000.0, -1500.0}));
    EXPECT_DOUBLE_EQ(lower.intervalVelocity, 4000);
    EXPECT_NEAR(lower.averageVelocity, 2666.666667, 1e-6);
    EXPECT_FALSE(lower.flag);

    run(L"DELETE FROM vdm_data"); // unseen until the model is read again
    model.getVDModel(items, false);
    EXPECT_EQ(items.size(), 2U);
    model.getVDModel(items, true);
    EXPECT_TRUE(items.empty());
}

TEST_F(ModelTest, findsTheFirstIntervalInAnyOrderOfPoints) {
    struct {
        const char* where;
        std::vector<double> steps; // of time, from one point to the next
    } const cases[] = {
        {"falling", {-1, -2, -0.5}},
        {"repeated", {-1, 0, 0}},
        {"rising", {1, 2}},
        {"wandering", {-2, -1, 0, 1, 2}},
        {"mostly falling", {-3, -3, -3, 2}},
    };
    for (const auto& c : cases)
        for (unsigned int seed = 0; seed < 60; ++seed) {
            std::mt19937 r(seed);
            points given = {{100, 0}};
            const auto count = 2 + r() % 40;
            while (given.size() < count)
                given.emplace_back(given.back().first - static_cast<double>(r() % 3),
                                   given.back().second + c.steps[r() % c.steps.size()]);
            auto model = stored(given);
            std::vector<double> depths, times;
            for (const auto& [depth, time] : listOf(model)) {
                depths.push_back(depth);
                times.push_back(time);
            }
            for (int i = 0; i < 60; ++i) {
                constexpr double beside[] = {-30.0, -0.25, 0.0, 0.25, 30.0};
                const double depth = depths[r() % depths.size()] + beside[r() % 5];
                const double time = times[r() % times.size()] + beside[r() % 5];
                ASSERT_EQ(model.getTime(depth), scanned(depths, times, depth))
                    << c.where << ", seed " << seed << ", depth " << depth;
                ASSERT_EQ(model.getDepth(time), scanned(times, depths, time))
                    << c.where << ", seed " << seed << ", time " << time;
            }
        }
}

// Written by another program.
TEST_F(ModelTest, bearsNumbersThatAreNone) {
    auto model = stored({{0, -100}});
    EXPECT_TRUE(std::isnan(model.getTime(notNumber)));
    EXPECT_EQ(model.getTime(inf), inf);
    EXPECT_EQ(model.getDepth(-inf), -inf);
    model = stored({{0, -100}, {-50, -20}, {-100, -300}});
    run(L"UPDATE vdm_data SET time = NULL WHERE depth = -50"); // reads as 0
    EXPECT_EQ(model.getDepth(-50), 50);
    EXPECT_DOUBLE_EQ(model.getDepth(-200), -50 - 50 * 200.0 / 300.0);
    run(L"UPDATE vdm_data SET time = 9e999 WHERE depth = -50");
    std::vector<NORLEX_vdmItem> items;
    model.getVDModel(items, true);
    EXPECT_EQ(items[1].intervalVelocity, -0.0);
    EXPECT_EQ(model.getDepth(-40), 60);
    EXPECT_TRUE(std::isnan(model.getDepth(-200))) << "infinity by infinity";
}

TEST_F(ModelTest, editsStoredPoints) {
    auto model = stored({{0, -100}, {-50, -150}, {-80, -0.1}});
    ASSERT_TRUE(model.editTime(3, -1.0 / 3.0)) << lastError();
    ASSERT_TRUE(model.editDepth(1, -60)) << lastError();
    // after an edit the positions are those of the list read again
    EXPECT_EQ(listOf(model), (points{{100, 0}, {-50, -150}, {-60, -100}, {-80, -1.0 / 3.0}}));
    ASSERT_TRUE(model.remove(1)) << lastError();
    EXPECT_EQ(listOf(model).size(), 3U);

    struct {
        const char* where;
        std::function<bool()> edit;
        const char* line;
    } const refused[] = {
        {"head", [&] { return model.editDepth(0, 1); }, "the point at the well head"},
        {"head removed", [&] { return model.remove(0); }, "the point at the well head"},
        {"past the end", [&] { return model.editTime(3, 1); }, "the model has 3 points"},
        {"some past the end",
         [&] {
             return model.remove({1, 7});
         },
         "the model has 3 points"},
        {"infinite", [&] { return model.editTime(1, inf); }, "the time of a model's point is inf"},
        {"depth that is none", [&] { return model.add(notNumber, 1); }, "the depth of a model's"},
        {"time that is none", [&] { return model.add(1, notNumber); }, "the time of a model's"},
    };
    for (const auto& c : refused) {
        EXPECT_FALSE(c.edit()) << c.where;
        EXPECT_TRUE(lastError().starts_with(c.line)) << c.where << ": " << lastError();
        EXPECT_EQ(listOf(model).size(), 3U) << c.where;
    }
    listOf(model);
    run(L"DELETE FROM vdm_data WHERE depth = -60");
    EXPECT_FALSE(model.remove(1)) << "gone meanwhile";
    auto copy = model;
    ASSERT_TRUE(copy.remove({1, 1})) << lastError();
    EXPECT_EQ(listOf(copy), (points{{100, 0}}));
    ASSERT_TRUE(copy.remove(std::vector<std::size_t>()));
}

TEST_F(ModelTest, knowsWhichWellsHaveOne) {
    EXPECT_FALSE(NORLEX_wellVDM::isExistEny(&db));
    stored({{1, 2}});
    EXPECT_TRUE(NORLEX_wellVDM::isExist(&db, 7LL) && NORLEX_wellVDM::isExistEny(&db));
    EXPECT_FALSE(NORLEX_wellVDM::isExist(&db, 8LL) || NORLEX_wellVDM::isExistEny(nullptr));
    struct {
        const wchar_t* list;
        bool isThere;
    } const cases[] = {{L"7", true},
                       {L"6, 7,8", true},
                       {L"6,8", false},
                       {L"", false},
                       {L"7) OR (1=1", false},
                       {L"x,7", false}};
    for (const auto& c : cases)
        EXPECT_EQ(NORLEX_wellVDM::isExistEny(&db, std::wstring(c.list)), c.isThere)
            << ts::strconv::toUtf8(c.list);
}

// By hand: 200 ms at 2500 m/s there and back are 250 m, 300 ms at 3000 m/s 450 m.
TEST(VdmPointsTest, intervalsBecomePoints) {
    using given = std::vector<vdmPoints::interval>;
    struct {
        const char* where;
        bool inTime;
        given intervals;
        points expected;
    } const cases[] = {
        {"in time",
         true,
         {{0, -200, 2500}, {-200, -500, 3000}},
         {{100, 0}, {-150, -200}, {-600, -500}}},
        {"in time, from a later top", true, {{-20, -220, 2500}}, {{100, -20}, {-150, -220}}},
        {"in time, one without velocity",
         true,
         {{0, -200, 2500}, {-200, -300, 0}, {-300, -600, 3000}},
         {{100, 0}, {-150, -200}, {-600, -600}}},
        {"in depth",
         false,
         {{100, -150, 2500}, {-150, -600, 3000}},
         {{100, 0}, {-150, -200}, {-600, -500}}},
        {"in depth, over a gap",
         false,
         {{50, -150, 2500}, {-300, -600, 3000}},
         {{100, 0}, {-150, -200}, {-600, -500}}},
        {"in depth, above the head",
         false,
         {{300, 101, 2000}, {300, 100, 2000}, {100, -150, 2500}},
         {{100, 0}, {100, 0}, {-150, -200}}},
        {"in depth, velocity below 0",
         false,
         {{100, 0, -1}, {0, -150, 2500}},
         {{100, 0}, {-150, -200}}},
    };
    for (const auto& c : cases) {
        points out;
        for (const auto& point : c.inTime ? vdmPoints::ofTimeIntervals(100, c.intervals)
                                          : vdmPoints::ofDepthIntervals(100, c.intervals))
            out.emplace_back(point.depth, point.time);
        EXPECT_EQ(out, c.expected) << c.where;
    }
}

TEST(VdmPointsTest, pointsThatDoNotFallAreLeftOut) {
    struct {
        const char* where;
        points given;
        points kept;
        std::vector<std::uint64_t> left; // by position, from 1
    } const cases[] = {
        {"in any order", {{-50, -30}, {0, -20}}, {{0, -20}, {-50, -30}}, {}},
        {"above the head", {{100.2, 1}, {0, -20}}, {{0, -20}}, {1}},
        {"a datum of its own at the head",
         {{100.05, -10}, {0, -20}},
         {{100.05, -10}, {0, -20}},
         {}},
        {"time 0 below the head", {{0, 0}, {-10, -5}}, {{-10, -5}}, {1}},
        {"a time that rises", {{0, -20}, {-10, -15}, {-20, -30}}, {{0, -20}, {-20, -30}}, {2}},
        {"the same point again", {{0, -20}, {0, -20}}, {{0, -20}}, {}},
        {"another time at a depth", {{0, -20}, {0, -21}}, {{0, -20}}, {2}},
        {"another depth at a time", {{0, -20}, {-1, -20}}, {{0, -20}}, {2}},
    };
    for (const auto& c : cases) {
        std::vector<vdmPoints::sourced> given;
        for (const auto& [depth, time] : c.given)
            given.push_back({depth, time, given.size() + 1, 0});
        std::vector<std::uint64_t> left;
        points out;
        for (const auto& point : vdmPoints::arranged(
                 given, 100, [&](const auto&bad, const auto&) { left.push_back(bad.row); }))
            out.emplace_back(point.depth, point.time);
        EXPECT_EQ(out, c.kept) << c.where;
        EXPECT_EQ(left, c.left) << c.where;
    }
    EXPECT_EQ(vdmPoints::storedTime(1.5, {.oneWay = true, .seconds = true}), -3000.0);
    EXPECT_EQ(vdmPoints::storedTime(-2, {}), 2.0);
}

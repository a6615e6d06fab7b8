#include "NORLEX_surveyReport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

inclData station(double depth, double angle, double azimuth) {
    inclData s;
    s.depth = depth;
    s.angle = angle;
    s.azimuth = azimuth;
    return s;
}

} // namespace

// The worked example of Sawaryn and Thorogood (2005) does not give its figures to the last digit;
// these are of arcs whose geometry is known.
TEST(SurveyReport, sectionsAreArcs) {
    struct {
        const char* where;
        std::vector<inclData> stations;
        double north, east, vertical, per30m;
    } const cases[] = {
        // a quarter of a circle of radius 100, northwards
        {"a quarter turn",
         {station(0, 0, 0), station(50 * M_PI, 90, 0)},
         100,
         0,
         100,
         90 / (50 * M_PI) * 30},
        {"level and turning east",
         {station(0, 90, 0), station(50 * M_PI, 90, 90)},
         100,
         100,
         0,
         90 / (50 * M_PI) * 30},
        {"straight", {station(0, 30, 90), station(200, 30, 90)}, 0, 100, 100 * std::sqrt(3.0), 0},
        {"vertical above the first station", {station(100, 0, 45)}, 0, 0, 100, 0},
        {"over the top: 60 degrees turned through the vertical",
         {station(0, 30, 180), station(100, 30, 0)},
         0,
         0,
         100 * 3 / M_PI,
         18},
    };
    for (const auto& c : cases) {
        const NORLEX_surveyReport report(c.stations, 500);
        const auto& last = report.getRows().back();
        EXPECT_NEAR(last.north, c.north, 1e-9) << c.where;
        EXPECT_NEAR(last.east, c.east, 1e-9) << c.where;
        EXPECT_NEAR(last.vertical, c.vertical, 1e-9) << c.where;
        EXPECT_NEAR(last.absDepth, 500 - c.vertical, 1e-9) << c.where;
        EXPECT_NEAR(last.dogLeg30m, c.per30m, 1e-9) << c.where;
        EXPECT_NEAR(last.dogLeg100ft, c.per30m * 1.016, 1e-9) << c.where;
    }
}

TEST(SurveyReport, crossingsAreWhereTheHolePasses) {
    // down, level at 100 below the head, up again through it, and level at 50
    const NORLEX_surveyReport report({station(0, 0, 0),
                                      station(50 * M_PI, 90, 0), // vertical 100
                                      station(300, 90, 0),
                                      station(300 + 50 * M_PI, 180, 0),
                                      station(600, 180, 0)},
                                     0);
    struct {
        const char* where;
        double absDepth;
        std::vector<double> crossings;
    } const cases[] = {
        {"the head", 0, {0, 300 + 50 * M_PI}},
        {"the level stretch, both ends", -100, {50 * M_PI, 300}},
        {"half the radius, down and up", -50, {100 * M_PI / 6, 300 + 100 * M_PI / 3}},
        {"above the head", 20, {320 + 50 * M_PI}},
        {"never so deep", -100.001, {}},
        {"never so high", 1000, {}},
    };
    for (const auto& c : cases) {
        const auto found = report.getCrossings(c.absDepth);
        ASSERT_EQ(found.size(), c.crossings.size()) << c.where;
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_NEAR(found[i], c.crossings[i], 1e-4) << c.where;
    }
}

// Halving every section at its middle, where the arc's direction lies between both ends, changes no
// position; and the depth at a crossing is the one asked for.
TEST(SurveyReport, crossingsOfRandomHolesLieOnThem) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> angle(0, 120), azimuth(0, 360), length(5, 60);
    for (int hole = 0; hole < 50; ++hole) {
        std::vector<inclData> stations{station(0, angle(random), azimuth(random))};
        for (int i = 0; i < 20; ++i)
            stations.push_back(
                station(stations.back().depth + length(random), angle(random), azimuth(random)));
        const NORLEX_surveyReport report(stations, 100);
        const double wanted = 100 - 0.37 * report.getRows()[10].vertical;
        // by brute force: signs of the distance at many points of each arc
        int passes = 0;
        const auto& rows = report.getRows();
        for (std::size_t i = 1; i < rows.size(); ++i) {
            const double a = (rows[i - 1].angle) * M_PI / 180, b = rows[i].angle * M_PI / 180;
            const double turn = rows[i].dogLeg * M_PI / 180,
                         long_ = rows[i].depth - rows[i - 1].depth;
            double z = rows[i - 1].absDepth;
            constexpr int steps = 20000;
            for (int k = 0; k < steps; ++k) {
                const double t = (k + 0.5) / steps;
                const double down =
                    (std::sin((1 - t) * turn) * std::cos(a) + std::sin(t * turn) * std::cos(b))
                    / std::sin(turn);
                const double next = z - down * long_ / steps;
                passes += (z > wanted) != (next > wanted);
                z = next;
            }
            EXPECT_NEAR(z, rows[i].absDepth, 1e-6);
        }
        EXPECT_EQ(report.getCrossings(wanted).size(), static_cast<std::size_t>(passes)) << hole;
    }
}

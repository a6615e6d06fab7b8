// Intervals from logs and records, and statistics within them: cases by hand.
#include "derived/interval_statistics.h"
#include "derived/ore_intervals.h"
#include "derived/value_intervals.h"
#include "tests/derived/log_text.h"

#include <gtest/gtest.h>

using logText::log;
using logText::pieces;
using logText::shown;

// In 0.5..3 the sample at 3 stands for 2.5..3 alone: mean (2 + 4 + 8 / 2) / 2.5 = 4. The values'
// own mean is 14 / 3; their squared distances from it add up to 168 / 9, of which half is 28 / 3.
// Of all, the values stand for 0.5, 1, 1, 1, 0.5, 0.5, 0.65 and 0.15 metres: 46.9 / 5.3.
TEST(IntervalStatistics, areThoseOfTheSamplesInside) {
    const auto samples = log("0:1 1:2 2:4 3:8 4:- 5:7 5:9 6:1 6.3:2");
    struct {
        const char* where;
        depthSpan interval;
        const char* expected; // mean, median, smallest, largest, sum, count, deviation
    } const cases[] = {
        {"clipped", {0.5, 3}, "4 4 2 8 14 3 3.0550504633038935"},
        {"one sample", {1, 1}, "2 2 2 2 2 1 -"},
        {"between samples", {1.2, 1.8}, "- - - - - - -"},
        {"a missing one", {3.5, 4.4}, "- - - - - - -"},
        {"two at one depth", {5, 5}, "8 8 7 9 16 2 1.4142135623730951"},
        {"below all", {100, 200}, "- - - - - - -"},
        {"all, an even number", {-1e9, 1e9}, "4.4245283018867925 3 1 9 34 8 3.2841611235921855"},
    };
    for (const auto& c : cases) {
        std::vector<double> found;
        for (int s = NORLEX_statisticMean; s <= NORLEX_statisticDeviation; ++s)
            found.push_back(intervalStatistics::of(
                samples, {&c.interval, 1}, static_cast<NORLEX_statistic>(s))[0]);
        EXPECT_EQ(shown(found), c.expected) << c.where;
    }
    const depthSpan third{0.1 + 0.2, 0.4}; // a little below 0.3
    EXPECT_EQ(intervalStatistics::of(log("0.2:1 0.3:2"), {&third, 1}, NORLEX_statisticCount)[0],
              1.0);
}

TEST(ValueIntervals, ofALogEndOnItsLines) {
    struct {
        const char* where;
        const char* samples;
        double from;
        double to;
        const char* found;
    } const cases[] = {
        {"above", "0:0 2:10 4:0", 5, 1e9, "1..3"},
        {"below", "0:0 2:10 4:0", -1e9, 5, "0..1 3..4"},
        {"passed through", "0:0 10:10 20:0", 4, 6, "4..6 14..16"},
        {"a bound is within", "0:5 1:5 2:0", 5, 5, "0..1"},
        {"touched", "0:0 1:5 2:0", 5, 9, ""},
        {"ended by a gap", "0:7 1:7 2:- 3:7 4:7", 5, 9, "0..1 3..4"},
        {"a lone sample", "0:- 1:7 2:-", 5, 9, ""},
        {"without bounds",
         "0:-1e300 1:0 2:1e300",
         std::numeric_limits<double>::lowest(),
         std::numeric_limits<double>::max(),
         "0..2"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(shown(valueIntervals::united(
                      valueIntervals::ofLog(log(c.samples), c.from, c.to), 0, 0)),
                  c.found)
            << c.where;
}

TEST(ValueIntervals, areUnitedAndThenMeasured) {
    struct {
        const char* where;
        const char* given;
        double maxGap;
        double minThickness;
        const char* found;
    } const cases[] = {
        {"adjoining", "0..1:7 1..2:8 3..4:7", 0, 0, "0..2 3..4"},
        {"out of the range", "0..1:7 1..2:4 2..3:7 3..4:-", 0, 0, "0..1 2..3"},
        {"a gap as large as may be", "0..1:7 1.5..2:7 2.6..3:7", 0.5, 0, "0..2 2.6..3"},
        {"thin ones after that", "0..0.4:7 0.5..1:7 3..3.9:7", 0.1, 1, "0..1"},
        {"overlapping, unsorted", "5..6:7 0..3:7 1..2:7", 0, 0, "0..3 5..6"},
        {"no thickness", "0..0:7 1..1.004:7 2..2.01:7", 0, 0, "2..2.01"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(shown(valueIntervals::united(
                      valueIntervals::ofPieces(pieces(c.given), 5, 9), c.maxGap, c.minThickness)),
                  c.found)
            << c.where;
    // each point half-way to its neighbours, one without a number too
    EXPECT_EQ(
        shown(valueIntervals::united(
            valueIntervals::ofPieces(depthPieces::ofSamples(log("0:7 2:7 4:- 6:7 7:1")), 5, 9),
            0,
            0)),
        "0..3 5..6.5");
}

TEST(OreIntervals, takeInThinWaste) {
    struct {
        const char* where;
        const char* grades; // the cutoff is 3
        double minThickness;
        double maxWaste;
        const char* found;
    } const cases[] = {
        {"adjoining ore, by thickness", "0..1:3 1..4:7 4..5:1", 0, 0, "0..4=6"},
        {"waste as thick as may be", "0..2:5 2..3:1 3..4:5", 0, 1, "0..4=4"},
        {"waste too thick", "0..2:5 2..3:1 3..4:5", 0, 0.9, "0..2=5 3..4=5"},
        {"the whole too poor", "0..1:4 1..2:0 2..3:4", 0, 1, "0..1=4 2..3=4"},
        {"just rich enough", "0..1:4 1..2:1 2..3:4", 0, 1, "0..3=3"},
        {"waste in layers counts as one", "0..5:5 5..6:0 6..7:1 7..9:5", 0, 1.5, "0..5=5 7..9=5"},
        {"one after the other", "0..1:7 1..2:1 2..3:4 3..4:1 4..5:4", 0, 1, "0..5=3.4"},
        {"what was not assayed ends it",
         "0..1:9 1..2:- 2..3:9 3.5..4:9",
         0,
         9,
         "0..1=9 2..3=9 3.5..4=9"},
        {"waste above a gap stays out", "0..1:9 1..2:1 2.5..3:9", 0, 9, "0..1=9 2.5..3=9"},
        {"waste below a gap, too", "0..1:9 1.5..2:1 2..3:9", 0, 9, "0..1=9 2..3=9"},
        {"thin ore after that", "0..1:9 1..2:1 2..3:9 5..6:9", 2, 1, "0..3=6.333333333333333"},
        {"decimals at the cutoff",
         "0..0.1:3 0.1..0.3:3 0.3..0.4:0 0.4..0.7:4",
         0,
         0.1,
         "0..0.7=2.9999999999999996"},
        {"none", "0..1:2 1..2:-", 0, 1, ""},
    };
    for (const auto& c : cases) {
        const auto found = oreIntervals::drawn(pieces(c.grades), {3, c.minThickness, c.maxWaste});
        EXPECT_EQ(logText::joined(found,
                                  [](const auto& one) {
                                      return shown({one.span}) + "=" + logText::number(one.mean);
                                  }),
                  c.found)
            << c.where;
    }
}

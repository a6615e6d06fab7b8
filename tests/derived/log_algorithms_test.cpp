// Logs from logs and from records: cases by hand.
#include "derived/crossings.h"
#include "derived/simplify.h"
#include "derived/splice.h"
#include "derived/step_log.h"
#include "derived/window_filter.h"
#include "tests/derived/log_text.h"

#include <gtest/gtest.h>

using logText::log;
using logText::shown;

TEST(WindowFilter, takesHalfAWindowToEachSide) {
    struct {
        const char* where;
        const char* samples;
        double window;
        const char* mean;
        const char* median;
    } const cases[] = {
        {"nothing", "", 2, "", ""},
        {"no value", "0:- 1:-", 2, "0:- 1:-", "0:- 1:-"},
        {"a missing sample stays and takes no part",
         "0:1 1:2 2:6 3:- 4:10",
         2,
         "0:1.5 1:3 2:4 3:- 4:10",
         "0:1.5 1:2 2:4 3:- 4:10"},
        {"bounds that are no doubles",
         "0:1 0.1:2 0.2:6 0.3:1 0.4:8",
         0.2,
         "0:1.5 0.1:3 0.2:3 0.3:5 0.4:4.5",
         "0:1.5 0.1:2 0.2:2 0.3:6 0.4:4.5"},
        {"samples of one depth share a window",
         "0:1 1:2 1:6 2:3",
         1,
         "0:1 1:4 1:4 2:3",
         "0:1 1:4 1:4 2:3"},
        {"uneven steps", "0:3 1:1 5:8 5.5:2", 2, "0:2 1:2 5:5 5.5:5", "0:2 1:2 5:5 5.5:5"},
        {"a huge value leaves nothing behind",
         "0:6e300 1:1 2:3 3:5",
         2,
         "0:3e+300 1:2e+300 2:3 3:4",
         "0:3e+300 1:3 2:3 3:4"},
    };
    for (const auto& c : cases) {
        const auto samples = log(c.samples);
        EXPECT_EQ(shown(windowFilter::filtered(samples, NORLEX_windowMean, c.window)), c.mean)
            << c.where;
        EXPECT_EQ(shown(windowFilter::filtered(samples, NORLEX_windowMedian, c.window)), c.median)
            << c.where;
    }
}

TEST(Simplify, keepsWhatLinesWouldMiss) {
    struct {
        const char* where;
        const char* samples;
        double tolerance;
        const char* kept;
    } const cases[] = {
        {"nothing", "", 1, ""},
        {"one sample", "5:1", 1, "5:1"},
        {"a straight line", "0:0 1:1 2:2 4:4", 0.1, "0:0 4:4"},
        {"a peak", "0:0 1:0 2:5 3:0 4:0", 3, "0:0 2:5 4:0"}, // its foot is 2.5 from the flank
        {"and its feet", "0:0 1:0 2:5 3:0 4:0", 2, "0:0 1:0 2:5 3:0 4:0"},
        {"at the tolerance", "0:0 1:1 2:0", 1, "0:0 2:0"},
        {"along the value axis", "0:0 1:30 2:0", 29, "0:0 1:30 2:0"}, // beside the line it is 1
        {"gaps split it", "0:0 1:1 2:- 3:- 4:- 5:2 6:3 7:4", 0.5, "0:0 1:1 2:- 4:- 5:2 7:4"},
        {"gaps at the ends", "0:- 1:1 2:2 3:3 4:-", 0.5, "0:- 1:1 3:3 4:-"},
        {"two samples at one depth", "0:0 1:1 1:1.2 2:2 3:3", 0.5, "0:0 1:1 1:1.2 3:3"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(shown(simplify::simplified(log(c.samples), c.tolerance)), c.kept) << c.where;
}

TEST(Crossings, areCountedOnce) {
    struct {
        const char* where;
        const char* samples;
        NORLEX_crossing which;
        const char* found; // at a cutoff of 5; + rises, - falls
    } const cases[] = {
        {"up", "0:0 4:20", NORLEX_crossingBoth, "1+"},
        {"both ways", "0:0 1:10 2:0", NORLEX_crossingBoth, "0.5+ 1.5-"},
        {"rising alone", "0:0 1:10 2:0", NORLEX_crossingRising, "0.5+"},
        {"falling alone", "0:0 1:10 2:0", NORLEX_crossingFalling, "1.5-"},
        {"a sample at it", "0:0 1:5 2:10", NORLEX_crossingBoth, "1+"},
        {"two of them", "0:10 1:5 2:5 3:0", NORLEX_crossingBoth, "1-"},
        {"reached and left again", "0:0 1:5 2:0", NORLEX_crossingBoth, ""},
        {"from it", "0:5 1:10", NORLEX_crossingBoth, ""},
        {"over a gap", "0:0 1:- 2:10", NORLEX_crossingBoth, ""},
        {"over a gap at it", "0:0 1:5 2:- 3:10", NORLEX_crossingBoth, ""},
        {"at one depth", "0:0 1:0 1:10", NORLEX_crossingBoth, "1+"},
    };
    for (const auto& c : cases) {
        const auto found = crossings::found(log(c.samples), 5, c.which);
        EXPECT_EQ(logText::joined(found,
                                  [](const auto& one) {
                                      return logText::number(one.depth) + (one.rises ? "+" : "-");
                                  }),
                  c.found)
            << c.where;
    }
}

TEST(Splice, joinsRunsByTheirUpperEnds) {
    struct {
        const char* where;
        std::vector<const char*> runs;
        NORLEX_lasOverlap overlap;
        const char* joined;
    } const cases[] = {
        {"upper", {"0:1 1:1 2:1", "1:3 2:3 3:3"}, NORLEX_lasOverlapUpper, "0:1 1:1 2:1 3:3"},
        {"lower, given first",
         {"1:3 2:3 3:3", "0:1 1:1 2:1"},
         NORLEX_lasOverlapLower,
         "0:1 1:3 2:3 3:3"},
        {"mean", {"0:1 1:1 2:1", "1:3 2:3 3:3"}, NORLEX_lasOverlapMean, "0:1 1:2 2:2 3:3"},
        {"mean at the upper depths",
         {"0:1 2:1 4:1", "1:3 3:5 5:7"},
         NORLEX_lasOverlapMean,
         "0:1 2:2.5 4:3.5 5:7"},
        {"one side missing",
         {"0:1 1:- 2:1 2.5:1", "1:3 2:- 3:3"},
         NORLEX_lasOverlapMean,
         "0:1 1:3 2:1 2.5:1 3:3"},
        {"missing ends are no part of a run",
         {"-1:- 0:1 1:1 2:- 3:-", "0:- 2:4 3:4"},
         NORLEX_lasOverlapUpper,
         "0:1 1:1 2:4 3:4"},
        {"a gap within stays", {"0:1 1:- 2:1", "3:4"}, NORLEX_lasOverlapUpper, "0:1 1:- 2:1 3:4"},
        {"three", {"4:4 5:4", "0:1 3:1", "2:2 4.5:2"}, NORLEX_lasOverlapUpper, "0:1 3:1 4.5:2 5:4"},
        {"three, lower",
         {"4:4 5:4", "0:1 3:1", "2:2 4.5:2"},
         NORLEX_lasOverlapLower,
         "0:1 2:2 4:4 5:4"},
        {"inside the other", {"0:1 1:1 5:1", "1:2 2:2"}, NORLEX_lasOverlapUpper, "0:1 1:1 5:1"},
        {"inside, lower", {"0:1 1:1 5:1", "1:2 2:2"}, NORLEX_lasOverlapLower, "0:1 1:2 2:2 5:1"},
        {"none has a value", {"0:-", ""}, NORLEX_lasOverlapMean, ""},
    };
    for (const auto& c : cases) {
        std::vector<std::vector<NORLEX_logSample>> runs;
        for (const auto* run : c.runs)
            runs.push_back(log(run));
        EXPECT_EQ(shown(logSplice::joined(runs, c.overlap)), c.joined) << c.where;
    }
}

TEST(StepLog, standsAtMultiplesOfTheStep) {
    struct {
        const char* where;
        double top;
        double bottom;
        double step;
        const char* depths;
    } const cases[] = {
        {"ends included", 1, 2, 0.5, "1 1.5 2"},
        {"ends between", 0.7, 2.2, 0.5, "1 1.5 2"},
        {"decimals", 0.1, 0.7, 0.1, "0.1 0.2 0.3 0.4 0.5 0.6 0.7"},
        {"above the head", -0.2, 0.1, 0.1, "-0.2 -0.1 0 0.1"},
        {"none", 1.1, 1.4, 0.5, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(shown(stepLog::depths(c.top, c.bottom, c.step).value()), c.depths) << c.where;
    EXPECT_FALSE(stepLog::depths(0, 1000, 1e-5)) << "too many";
    EXPECT_FALSE(stepLog::depths(0, 1, 1e-320)) << "too many to count";
    EXPECT_FALSE(stepLog::depths(1, 1, 1e-300)) << "a micrometre to each side";
}

TEST(StepLog, takesValuesOfIntervalsAndPoints) {
    const std::vector<double> depths = {0, 1, 2, 3, 4, 5, 6};
    // the upper one at 2; nothing at 4 and from 6 on; the longer one goes on below the one in it
    EXPECT_EQ(shown(stepLog::ofPieces(logText::pieces("0.5..2:1 2..3.5:2 4.5..5.5:3"), depths)),
              "- 1 1 2 - 3 -");
    EXPECT_EQ(shown(stepLog::ofPieces(logText::pieces("0..3:1 1..2:2 1..5:3"), depths)),
              "1 1 1 1 3 3 -");
    EXPECT_EQ(shown(stepLog::ofSamples(log("1:10 3:20 3.5:0 5:30"), depths)), "- 10 15 20 10 30 -");
}

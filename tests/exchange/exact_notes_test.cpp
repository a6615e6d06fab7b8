#include "exchange/exact_notes.h"

#include <gtest/gtest.h>

using exactNotes::notes;

TEST(ExactNotes, areSpelledInLines) {
    notes given;
    given.nullsAreNoSamples = true;
    given.wellName = L"a:b";
    given.curves = {{L"GR", {}, {}}, {L"_A", L"~A", {}}};
    for (const std::uint32_t row : {0U, 1U, 2U, 4U})
        given.curves[0].missing.add(row);
    std::vector<std::wstring> lines;
    ASSERT_TRUE(exactNotes::lines(given, lines));
    const std::vector<std::wstring> want = {L"WELL NAME a%3Ab",
                                            L"NULL ROWS ARE NO SAMPLES",
                                            L"CURVE 1 GR ROWS 1-3 5",
                                            L"CURVE 2 _A NAME %7EA"};
    EXPECT_EQ(lines, want);
    const notes back = exactNotes::read(lines, {L"GR", L"_A"});
    EXPECT_EQ(back.wellName, L"a:b");
    EXPECT_EQ(back.curves[1].name, L"~A");
    EXPECT_TRUE(back.nullsAreNoSamples);
}

// Lines of a file that somebody edited, or that another program wrote for its own ends.
TEST(ExactNotes, otherLinesSayNothing) {
    const notes read = exactNotes::read({L"",
                                         L"CURVE",
                                         L"CURVE 0 GR NAME zero",
                                         L"CURVE 3 GR NAME past the end",
                                         L"CURVE 4294967297 GR NAME wraps around",
                                         L"CURVE 1 SP NAME moved",
                                         L"CURVE 1 GR NAME",
                                         L"CURVE 1 GR ROWS 0 5-2 x 1- -3 99999999999",
                                         L"CURVE one GR NAME x",
                                         L"NULL ROWS ARE NO SAMPLES?",
                                         L"WELL DRILLED IN 1961",
                                         L"FIELD NAME"},
                                        {L"GR", L"SP"});
    EXPECT_FALSE(read.nullsAreNoSamples);
    EXPECT_TRUE(read.wellName.empty() && read.fieldName.empty());
    for (const auto& curve : read.curves) {
        EXPECT_TRUE(curve.name.empty());
        EXPECT_TRUE(curve.missing.isEmpty());
    }
}

// More would make a header that no reader takes.
TEST(ExactNotes, refusesMoreThanAMillionGaps) {
    notes given;
    given.nullsAreNoSamples = true;
    given.curves = {{L"GR", {}, {}}};
    for (std::uint32_t row = 0; row <= 2'000'000; row += 2)
        given.curves[0].missing.add(row);
    std::vector<std::wstring> lines;
    EXPECT_FALSE(exactNotes::lines(given, lines));
}

#include "tests/exchange/las_text.h"

// Four curves A to D, wrapped; the data begin at line 13. Header step 0.5.
class WrappedLasTest : public LasTextTest {
protected:
    NORLEX_lasfileExt readWrapped(std::string_view data, std::string_view step = "0.5") {
        return read("~V\nWRAP. YES :\n~W\nNULL. -9 :\nSTEP.M " + std::string(step)
                    + " :\n~C\nDEPT.M :\nA.:\nB.:\nC.:\nD.:\n~A\n" + std::string(data));
    }
};

TEST_F(WrappedLasTest, gathersFieldsAcrossLines) {
    const std::string expected = "10:1,2,3,4;10.5:5,6,7,8;11:9,10,11,12";
    struct {
        const char* where;
        const char* data;
    } const cases[] = {
        {"depth alone", "10\n1 2\n3 4\n10.5\n5 6\n7 8\n11\n9 10\n11 12\n"},
        {"the last line holds one", "10\n1 2 3\n4\n10.5\n5 6 7\n8\n11\n9 10 11\n12\n"},
        {"one field a line", "10\n1\n2\n3\n4\n10.5\n5\n6\n7\n8\n11\n9\n10\n11\n12"},
        {"depth shares its line", "10 1 2\n3 4\n10.5 5 6\n7 8\n11 9 10\n11 12\n"},
        {"not wrapped at all", "10 1 2 3 4\n10.5 5 6 7 8\n11 9 10 11 12\n"},
        {"comments between", "10\n1 2\n# c\n3 4\n\n10.5\n5 6\n7 8\n11\n9 10\n11 12\n"},
    };
    for (const auto& c : cases) {
        const auto file = readWrapped(c.data);
        EXPECT_EQ(rows(file), expected) << c.where;
        EXPECT_EQ(skipped(file), std::vector<std::wstring>{}) << c.where;
    }
}

// 11 stands where the step before had one field, so it is a value though 11 is the next depth.
TEST_F(WrappedLasTest, aValueMayEqualTheNextDepth) {
    const auto file = readWrapped("10\n1 2 3\n4\n10.5\n5 6 7\n11\n11\n9 10 11\n12\n");
    EXPECT_EQ(rows(file), "10:1,2,3,4;10.5:5,6,7,11;11:9,10,11,12");
    EXPECT_EQ(skipped(file), std::vector<std::wstring>{});
}

TEST_F(WrappedLasTest, aStepThatDoesNotFillUpIsSkippedAndNothingIsShifted) {
    struct {
        const char* where;
        const char* data;
        const char* rows;
        std::vector<std::wstring> skipped;
    } const cases[] = {
        {"a value is missing, later",
         "10\n1 2\n3 4\n10.5\n5 6\n7\n11\n9 10\n11 12\n",
         "10:1,2,3,4;11:9,10,11,12",
         {L"16 depth 10.5 has 3 of 4 values"}},
        {"a value is missing, at first",
         "10\n1 2\n3\n10.5\n5 6\n7 8\n11\n9 10\n11 12\n",
         "10.5:5,6,7,8;11:9,10,11,12",
         {L"13 depth 10 has 3 of 4 values"}},
        {"a line is missing",
         "10\n1 2\n3 4\n10.5\n5 6\n11\n9 10\n11 12\n",
         "10:1,2,3,4;11:9,10,11,12",
         {L"16 depth 10.5 has 2 of 4 values"}},
        {"a line is missing, at first",
         "10\n1 2\n10.5\n5 6\n7 8\n11\n9 10\n11 12\n",
         "10.5:5,6,7,8;11:9,10,11,12",
         {L"13 depth 10 has 2 of 4 values"}},
        {"every step lacks one",
         "10\n1 2\n3\n10.5\n5 6\n7\n11\n9 10\n11\n",
         "",
         {L"13 depth 10 has 3 of 4 values",
          L"16 depth 10.5 has 3 of 4 values",
          L"19 depth 11 has 3 of 4 values"}},
        {"a value too many",
         "10\n1 2\n3 4\n10.5\n5 6\n7 8 9\n11\n9 10\n11 12\n",
         "10:1,2,3,4;11:9,10,11,12",
         {L"16 depth 10.5 has 2 of 4 values"}},
        {"a stray line",
         "10\n1 2\n3 4\n7 8\n10.5\n5 6\n7 8\n",
         "10:1,2,3,4;10.5:5,6,7,8",
         {L"16 it continues no depth step"}},
        {"the end is cut",
         "10\n1 2\n3 4\n10.5\n5 6\n",
         "10:1,2,3,4",
         {L"16 depth 10.5 has 2 of 4 values"}},
        {"shared line, one missing",
         "10 1 2\n3 4\n10.5 5 6\n7\n11 9 10\n11 12\n",
         "10:1,2,3,4;11:9,10,11,12",
         {L"15 depth 10.5 has 3 of 4 values"}},
        {"text for numbers",
         "10\n1 2\nN/A 4\nxx\n5 6\n7 8\n11\n9 10\n11 12\n",
         "10:1,2,-9,4;11:9,10,11,12",
         {L"13 value \"N/A\" of curve C is no number", L"16 depth \"xx\" is no number"}},
    };
    for (const auto& c : cases) {
        const auto file = readWrapped(c.data);
        EXPECT_EQ(rows(file), c.rows) << c.where;
        EXPECT_EQ(skipped(file), c.skipped) << c.where;
    }
}

TEST_F(WrappedLasTest, depthsMayFallAndTheHeaderMayBeWrongAboutTheStep) {
    for (const char* const step : {"0", "0.5", "-0.5", "100", "none"}) {
        auto file = readWrapped("20\n1 2\n3 4\n19.5\n5 6\n7 8\n19\n9 10\n18.5\n1 2\n3 4\n", step);
        EXPECT_EQ(rows(file), "20:1,2,3,4;19.5:5,6,7,8;18.5:1,2,3,4") << step;
        EXPECT_EQ(skipped(file), std::vector<std::wstring>{L"19 depth 19 has 2 of 4 values"})
            << step;
        file = readWrapped("20\n1 2\n3 4\n19.5\n5 6\n7 8\n19\n9 10\n11\n18.5\n1 2\n3 4\n", step);
        EXPECT_EQ(rows(file), "20:1,2,3,4;19.5:5,6,7,8;18.5:1,2,3,4") << step;
        EXPECT_EQ(skipped(file), std::vector<std::wstring>{L"19 depth 19 has 3 of 4 values"})
            << step;
    }
}

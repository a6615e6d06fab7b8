#include "exchange/las_header.h"
#include "tests/exchange/las_text.h"

#include <cmath>
#include <limits>

namespace {

constexpr const char* plainFile = R"(~Version Information
 VERS.                 2.0:    CWLS Log ASCII Standard - Version 2.0
 WRAP.                  NO:    One line per depth step
~Well Information
#MNEM.UNIT       VALUE       DESCRIPTION
 STRT.M        1670.0000 : First depth
 STOP.M        1669.7500 : Last depth
 STEP.M          -0.1250 : Step
 NULL.           -999.25 : Null value
 WELL.        Borehole 7 : Well
 X   .M         34567.89 : X
~Curve Information
 DEPT.M                  : Depth
 GR  .GAPI   45 310 01 00: Gamma ray
 DT  .US/M               : Sonic
~Parameter Information
 BHT .DEGC       35.5000 : Bottom hole temperature
 EKB .M            12.30 : Kelly bushing
~Other
  The tool stuck
  at 1669.
~A  DEPTH     GR       DT
1670.000   45.5   123.450
# a comment between rows
1669.875 -999.25  124.450

1669.750   55.5   -999.25
)";

} // namespace

TEST_F(LasTextTest, readsHeaderAndSamples) {
    auto file = read(plainFile);
    ASSERT_TRUE(file.isOK());
    EXPECT_EQ(file.getVersion(), 2);
    EXPECT_EQ(file.getVersionText(), L"2.0");
    EXPECT_FALSE(file.isWrap());
    EXPECT_EQ(file.getStart(), 1670.0);
    EXPECT_EQ(file.getStop(), 1669.75);
    EXPECT_EQ(file.getStep(), -0.125);
    EXPECT_EQ(file.getNodata(), -999.25);
    EXPECT_EQ(file.getWellName(), L"Borehole 7");
    EXPECT_EQ(file.getWellInf(L"stop"), L"1669.7500");
    EXPECT_EQ(file.getWellInf().size(), 6U);
    EXPECT_EQ(file.getDepthDescription().unit, L"M");
    EXPECT_EQ(names(file), (std::vector<std::wstring>{L"GR", L"DT"}));
    EXPECT_EQ(rows(file), "1670:45.5,123.45;1669.875:-999.25,124.45;1669.75:55.5,-999.25");
    EXPECT_EQ(skipped(file), std::vector<std::wstring>{});

    const auto* const gr = file.getCurveByName(L"GR");
    ASSERT_NE(gr, nullptr);
    EXPECT_EQ(gr->getUnits(), L"GAPI");
    EXPECT_EQ(gr->getComment(), L"Gamma ray");
    EXPECT_EQ(gr->getCurveDescByIndex(0).value, L"45 310 01 00");
    EXPECT_EQ(gr->getNodata(), -999.25);
    EXPECT_EQ(gr->getTop(), 1670.0);
    EXPECT_EQ(gr->getBot(), 1669.75);
    EXPECT_EQ(file.getCurveByIndex(2), nullptr);
    EXPECT_EQ(file.getCurveByName(L"DEPT"), nullptr);

    EXPECT_EQ(file.getMetaCount(), 2U);
    ASSERT_EQ(file.getPosition().size(), 2U); // of ~W, then of ~P
    EXPECT_EQ(file.getPosition()[0].value, L"34567.89");
    EXPECT_EQ(file.getPosition()[1].mnemonic, L"EKB");
    EXPECT_EQ(file.getOtherInf(), (std::vector<std::wstring>{L"  The tool stuck", L"  at 1669."}));
}

TEST_F(LasTextTest, headerOnlyStopsAtTheData) {
    auto file = read(plainFile, true);
    ASSERT_TRUE(file.isOK());
    EXPECT_EQ(file.getNumCurves(), 2U);
    EXPECT_EQ(file.getMetaCount(), 2U);
    EXPECT_EQ(file.getRowCount(), 0U);
    EXPECT_EQ(file.getCurveByIndex(0)->getPointsCount(), 0U);
}

// mid is the range by the count, and the deviation is about it over all points, nulls included:
// GR is 45.5, null, 55.5, so mid = (55.5 - 45.5) / 2 = 5 and the deviation
// sqrt((40.5^2 + 1004.25^2 + 50.5^2) / 2) = sqrt(1012708.5625 / 2) = 711.5858
TEST_F(LasTextTest, statisticsAreGatheredWhileReading) {
    auto file = read(plainFile);
    auto* const gr = file.getCurveByIndex(0);
    EXPECT_EQ(gr->getCount(), 2U);
    file.calcStatistic(false);
    EXPECT_EQ(gr->getMinimum(), 45.5);
    EXPECT_EQ(gr->getMaximum(), 55.5);
    EXPECT_EQ(gr->getMid(), 5.0);
    EXPECT_NEAR(gr->getStdDev(), 711.5858, 1e-4);

    file.calcStatistic(true); // counts every value again
    EXPECT_EQ(gr->getCount(), 4U);
    EXPECT_EQ(gr->getMid(), 2.5);

    NORLEX_lasCurve empty(L"E", std::numeric_limits<std::size_t>::max());
    empty.setNodata(-1.0);
    empty.addPoint({-1.000009, 10.0}); // nearer than 0.00001 to null
    empty.calcStatistic(true);
    EXPECT_EQ(empty.getCount(), 0U);
    EXPECT_EQ(empty.getMinimum(), -1.0);
    EXPECT_EQ(empty.getMaximum(), -1.0);
    EXPECT_EQ(empty.getMid(), 0.0);
}

TEST_F(LasTextTest, parcesEntriesByTheirFirstPointAndColon) {
    struct {
        const wchar_t* line;
        lasDescription entry;
    } const cases[] = {
        {L" DT .US/M  60 520 : Sonic ", {L"DT", L"US/M", L"60 520", L"Sonic"}},
        {L"NULL. -999.25 : null", {L"NULL", L"", L"-999.25", L"null"}},
        {L"STRT.M:1670", {L"STRT", L"M", L"", L"1670"}},
        {L"LATI .DEG\t53 42' : Latitude", {L"LATI", L"DEG", L"53 42'", L"Latitude"}},
        {L"TIML.hh:mm 23:15 : Time", {L"TIML", L"hh", L"", L"mm 23:15 : Time"}},
        {L"I. Res..OHM-M : Resistivity", {L"I", L"", L"Res..OHM-M", L"Resistivity"}},
        {L"GR.[API] : Gamma", {L"GR", L"[API]", L"", L"Gamma"}},
        {L"HOLE NUMBER : hole", {L"HOLE NUMBER", L"", L"", L"hole"}},
        {L"LOGTYPE : TT5.00", {L"LOGTYPE", L"", L"", L"TT5.00"}},
        {L"TEST.cps", {L"TEST", L"cps", L"", L""}},
        {L".OHMM : no mnemonic", {L"", L"OHMM", L"", L"no mnemonic"}},
        {L"no entry at all", {}},
    };
    for (const auto& [line, entry] : cases) {
        const auto got = las_header::parceDescription(line);
        EXPECT_EQ(got.mnemonic, entry.mnemonic) << line;
        EXPECT_EQ(got.unit, entry.unit) << line;
        EXPECT_EQ(got.value, entry.value) << line;
        EXPECT_EQ(got.description, entry.description) << line;
    }
}

// VERS and WRAP are looked for in every line from the ~V line on, whatever section it is of.
TEST_F(LasTextTest, findsVersionAndWrapLoosely) {
    struct {
        const char* where;
        const char* header;
        int version;
        bool wrap;
    } const cases[] = {
        {"version 1.2", "~V\nVERS. 1.2 :\nWRAP. YES :\n", 1, true},
        {"lower-case tag", "~v\nVERS. 2.0 :\nWRAP. YES :\n", 2, true},
        {"no such lines", "~V\n", 2, false},
        {"no ~V section", "~W\nVERS. 1.2 :\nWRAP. YES :\n", 2, false},
        {"in a section that follows", "~V\n~W\nVERS. 1.2 :\nWRAP. YES :\n", 1, true},
        {"inside other words", "~V\nMYVERS2. 3.0 :\nUNWRAPPED. YES :\n", 3, true},
        {"the first of two", "~V\n# VERS 1.2\nVERS. 1.2 :\n", 2, false},
        {"yes in lower case", "~V\nVERS. 2.0 :\nWRAP. yes :\n", 2, false},
        {"a version that is no number", "~V\nVERS. two :\n", 2, false},
        {"a comment with ~A ends it", "~V\n# see ~A\nVERS. 1.2 :\nWRAP. YES :\n", 2, false},
    };
    for (const auto& c : cases) {
        const auto file = read(std::string(c.header) + "~C\nD.:\n~A\n");
        ASSERT_TRUE(file.isOK()) << c.where;
        EXPECT_EQ(file.getVersion(), c.version) << c.where;
        EXPECT_EQ(file.isVersion2(), c.version == 2) << c.where;
        EXPECT_EQ(file.isWrap(), c.wrap) << c.where;
    }
}

TEST_F(LasTextTest, wellNumbersKeepTheirDefaultsWhenTheTextIsNoNumber) {
    struct {
        const char* where;
        const char* well;
        double null;
        double start;
        double step;
    } const cases[] = {
        {"nothing", "", -999999.0, 0.0, 0.0},
        {"words", "NULL. (NULL) :\nSTRT.M top :\n", -999999.0, 0.0, 0.0},
        {"not finite", "NULL. 1e999 :\nSTRT.M nan :\n", -999999.0, 0.0, 0.0},
        {"decimal comma", "NULL. -999,25 :\nSTRT.M 10,5 :\n", -999.25, 10.5, 0.0},
        {"a second word", "STRT.M 10.5 m :\nSTEP.M 0.1 (0.2) :\n", -999999.0, 10.5, 0.1},
        {"lower-case mnemonics", "null. -1 :\nstep. 0.25 :\n", -1.0, 0.0, 0.25},
        {"an end after a number", "STRT.M 12abc :\n", -999999.0, 0.0, 0.0},
    };
    for (const auto& c : cases) {
        const auto file = read("~W\n" + std::string(c.well) + "~C\nD.:\nA.:\n~A\n1 2\n", true);
        EXPECT_EQ(file.getNodata(), c.null) << c.where;
        EXPECT_EQ(file.getStart(), c.start) << c.where;
        EXPECT_EQ(file.getStep(), c.step) << c.where;
    }
    // A full read takes 1 for a step of 0.
    EXPECT_EQ(read("~W\nSTEP. 0 :\n~C\nD.:\nA.:\n~A\n1 2\n").getStep(), 1.0);
    EXPECT_EQ(read("~W\nSTEP. 0 :\n~C\nD.:\nA.:\n~A\n1 2\n", true).getStep(), 0.0);
}

TEST_F(LasTextTest, namesThatStandTwiceAreNumbered) {
    struct {
        const char* curves;
        std::vector<std::wstring> names;
    } const cases[] = {
        {"GR.:\nGR.:\nGR.:\n", {L"GR", L"GR_2", L"GR_3"}},
        {"Gr.:\ngR.:\nGR.:\n", {L"Gr", L"gR_2", L"GR_3"}},
        {"GR_2.:\nGR.:\nGR.:\n", {L"GR_2", L"GR", L"GR_3"}},
        {"GR.:\nGR.:\nGR_2.:\n", {L"GR", L"GR_2", L"GR_2_2"}},
        {"\u0413\u041a.:\n\u0433\u043a.:\n", {L"\u0413\u041a", L"\u0433\u043a_2"}}, // ГК, гк
        {".M :\n.M :\n", {L"", L"_2"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(names(read("~V\n~C\nD.:\n" + std::string(c.curves) + "~A\n")), c.names)
            << c.curves;
}

TEST_F(LasTextTest, knowsPositions) {
    std::wstring comment;
    for (const wchar_t* const mnemonic :
         {L"X", L"ycoord", L"Lati", L"LONG", L"EKB", L"apd", L"Elev"}) {
        EXPECT_TRUE(NORLEX_lasfileExt::isPosition(mnemonic)) << mnemonic;
        comment.clear();
        EXPECT_TRUE(NORLEX_lasfileExt::getPositionComment(mnemonic, comment)) << mnemonic;
        EXPECT_NE(comment, L"") << mnemonic;
    }
    comment = L"untouched";
    for (const wchar_t* const mnemonic : {L"", L"GR", L"XX", L"WELL"}) {
        EXPECT_FALSE(NORLEX_lasfileExt::isPosition(mnemonic)) << mnemonic;
        EXPECT_FALSE(NORLEX_lasfileExt::getPositionComment(mnemonic, comment)) << mnemonic;
    }
    EXPECT_EQ(comment, L"untouched");
}

// Several blocks of the reader, and more rows than the first ones, which are long, let expect.
TEST_F(LasTextTest, readsLargeFilesWhole) {
    std::string data;
    for (int i = 0; i < 200'000; ++i)
        data += i < 3000 ? std::to_string(i) + ".00000000000000000000 1.00000000000000000000 2\n"
                         : std::to_string(i) + " 1 -999.25\n";
    const auto file = read(twoCurves(data));
    ASSERT_EQ(file.getRowCount(), 200'000U);
    EXPECT_EQ(file.getCurveByIndex(0)->getCount(), 200'000U);
    EXPECT_EQ(file.getCurveByIndex(1)->getCount(), 3000U);
    bool isInOrder = true;
    for (std::size_t i = 0; i < file.getRowCount(); ++i)
        isInOrder =
            isInOrder && file.getCurveByIndex(1)->getPointByIndex(i).y == static_cast<double>(i);
    EXPECT_TRUE(isInOrder);
    EXPECT_EQ(file.getSkippedCount(), 0U);
}

#include "exchange/survey_listing.h"
#include "platform/numbers.h"

#include "NORLEX_lastError.h"
#include "NORLEX_well.h"
#include "platform/strconv.h"
#include "tests/support/container_fixture.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string listing(const std::string& data) {
    return "Well 1\n=====\nMD ANGLE AZIMUTH\n=====\n" + data;
}

// "depth angle azimuth;" of each station, or "refused".
std::string readBack(const std::wstring& path) {
    std::vector<inclData> stations(1);
    stations[0].depth = -1.0;
    if (!surveyListing::read(path, stations))
        return stations.size() == 1 && stations[0].depth == -1.0 ? "refused" : "refused, changed";
    std::string text;
    for (const auto& s : stations)
        text += numbers::shortest(s.depth) + " " + numbers::shortest(s.angle) + " "
                + numbers::shortest(s.azimuth) + ";";
    return text;
}

} // namespace

TEST(SurveyListingTest, readsTheLinesBetweenTheSecondAndTheThirdRule) {
    const temp_folder folder;
    struct {
        const char* where;
        std::string text;
        std::string expected;
    } const cases[] = {
        {"up to the third rule", listing("0 1 2\n10 3 4\n=====\n20 5 6\n"), "0 1 2;10 3 4;"},
        {"up to the end of the file", listing("0 1 2\n10 3 4"), "0 1 2;10 3 4;"},
        {"any line with a \"=\" is a rule",
         "MD = 0\n1 1 1\n2 2 2\nx=y\n0 1 2\n10 3 4\n5 = 5\n20 5 6\n",
         "0 1 2;10 3 4;"},
        {"rules in a row leave no data", "==\n==\n==\n0 1 2\n10 3 4\n", "refused"},
        {"one rule", "==\n0 1 2\n10 3 4\n", "refused"},
        {"no rule", "0 1 2\n10 3 4\n", "refused"},
        {"one station", listing("0 1 2\n10 3\n"), "refused"},
        {"an empty file", "", "refused"},
        {"CR LF line ends", "=\r\n=\r\n0 1 2\r\n10 3 4\r\n=\r\n", "0 1 2;10 3 4;"},
        {"order of the file", listing("10 3 4\n0 1 2\n10 3 4\n"), "10 3 4;0 1 2;10 3 4;"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(readBack(folder.write(L"a.lst", c.text)), c.expected) << c.where;
    EXPECT_EQ(readBack(folder / L"absent.lst"), "refused");
    EXPECT_NE(NORLEX_lastError().find(L"absent.lst"), std::wstring::npos);
}

TEST(SurveyListingTest, takesThreeFieldsOfALine) {
    const temp_folder folder;
    struct {
        const char* where;
        const char* line;
        const char* expected; // what the line adds after "5 6 7"
    } const cases[] = {
        {"more than three fields", "10 3 4 x 9", "10 3 4;"},
        {"signs, fractions, exponents", "+1.5 -2.25 3e1", "1.5 -2.25 30;"},
        {"two fields", "10 3", ""},
        {"an empty line", "", ""},
        {"no depth", "x 3 4", ""},
        {"no angle", "10 - 4", "10 6 4;"},
        {"no azimuth", "10 3 -", "10 3 7;"},
        {"neither", "10 - -", "10 6 7;"},
        {"a decimal comma in depth", "12,5 3 4", ""},
        {"a decimal comma in angle", "10 3,5 4", "10 6 4;"},
        {"a unit at the depth", "10m 3 4", ""},
        {"no finite depth", "inf 3 4", ""},
        {"no finite angle", "10 nan 4", "10 6 4;"},
        {"padded columns", "   10   3   4 ", "10 3 4;"},
        {"a column left blank", "10  4", "10 6 4;"}, // angle is empty
        {"two fields, the first blank", " 3 4", ""}, // depth is empty
        {"a blank at the end", "10 3 ", "10 3 7;"},  // azimuth is empty
        {"tabs", "10\t3\t4", ""},                    // one field
        {"tabs beside blanks", "10\t \t3 4\t", "10 3 4;"},
    };
    for (const auto& c : cases) {
        const auto path =
            folder.write(L"a.lst", listing("5 6 7\n" + std::string(c.line) + "\n8 8 8"));
        EXPECT_EQ(readBack(path), std::string("5 6 7;") + c.expected + "8 8 8;") << c.where;
    }
    // Before the first accepted line the values to keep are 0, and a skipped line leaves none.
    EXPECT_EQ(readBack(folder.write(L"a.lst", listing("x 1 1\n5 - -\n6 1 -"))), "5 0 0;6 1 0;");
}

TEST(SurveyListingTest, readsAnyEncoding) {
    const temp_folder folder;
    const std::wstring text = L"Скважина 12, инклинометрия\n====\nГлубина Угол Азимут\n====\n"
                              L"0 1 2\n10 3 4\n====\nЗабой\n";
    for (const auto encoding : {ts::strconv::utf8,
                                ts::strconv::utf16le,
                                ts::strconv::utf16be,
                                ts::strconv::windows1251,
                                ts::strconv::cp866,
                                ts::strconv::koi8r})
        EXPECT_EQ(readBack(folder.write(L"a.lst", ts::strconv::encode(text, encoding))),
                  "0 1 2;10 3 4;")
            << ts::strconv::name(encoding);
}

TEST(SurveyListingTest, refusesALineThatIsNoLineOfText) {
    const temp_folder folder;
    const auto path = folder.write(L"a.lst", listing("0 1 2\n5 6 7\n" + std::string(3 << 20, '1')));
    EXPECT_EQ(readBack(path), "refused");
    EXPECT_NE(NORLEX_lastError().find(L"line 7"), std::wstring::npos);
}

using WellSurveyTest = ContainerTest;

TEST_F(WellSurveyTest, storesTheListingOrChangesNothing) {
    const NORLEX_wellDescription description{L"", L"", L"1", 0};
    ASSERT_TRUE(NORLEX_well::create(db(), description)) << lastError();
    NORLEX_well well(db(), description);
    const auto path = folder.write(L"a.lst", listing("0 60 0\n100.004 10 20\n"));
    ASSERT_TRUE(well.loadInclFromLST(path, false)) << lastError();
    EXPECT_NEAR(well.getIncl()->getAbs(100), -50.0, 1e-9); // 100 cos 60
    EXPECT_EQ(cell(L"SELECT count(*) FROM inclinometry WHERE depth = 100"), L"1");

    EXPECT_FALSE(well.loadInclFromLST(folder.write(L"b.lst", listing("0 0 0\n")), false));
    EXPECT_NEAR(well.getIncl()->getAbs(100), -50.0, 1e-9);
    EXPECT_EQ(cell(L"SELECT count(*) FROM inclinometry"), L"2");
}

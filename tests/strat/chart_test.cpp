// Chart files, and how the units of a chart lie to each other.
#include "NORLEX_lastError.h"
#include "NORLEX_wellContainer.h"
#include "platform/last_error.h"
#include "tests/strat/small_chart.h"
#include "tests/support/container_fixture.h"

#include <gtest/gtest.h>

#include <cstdlib>

using smallChart::shown;
using strategraphy::element;
using strategraphy::statoTable;
using ts::strconv::toUtf8;

namespace {

class ChartTest : public testing::Test {
protected:
    [[nodiscard]] static element unit(NORLEX_taxonType level, const wchar_t* index) {
        return {L"", index, level, {}};
    }

    temp_folder folder;
    const statoTable chart{folder.write(L"small.csv", smallChart::text())};
};

constexpr NORLEX_taxonType levels[] = {NORLEX_taxonAkrotema,
                                       NORLEX_taxonEonotema,
                                       NORLEX_taxonSubEonotema,
                                       NORLEX_taxonEratema,
                                       NORLEX_taxonSystem,
                                       NORLEX_taxonSeries,
                                       NORLEX_taxonSubSeries,
                                       NORLEX_taxonStage};

std::string allUnits(const statoTable& chart) {
    std::string out;
    for (const auto level : levels)
        for (const auto& unit : chart.getElements(level))
            out += std::to_string(level) + ":" + toUtf8(unit.index) + "=" + toUtf8(unit.name) + " ";
    return out;
}

} // namespace

TEST_F(ChartTest, rowsDefineUnitsOnce) {
    struct {
        const char* where;
        const char* text;
        const char* units;
        std::size_t rows;
    } const cases[] = {
        {"fifteen fields", "A;a;;;;;;;;;;;;;\n", "", 0},
        {"sixteen", "A;a;;;;;;;;;;;;;;\n", "1:A=a ", 1},
        {"a line without an end", "A;a;;;;;;;;;;;;;S;s", "1:A=a 9:S=s ", 1},
        {"more than sixteen", ";;;;;;;;;;;;;;S;s;x;y\n", "9:S=s ", 1},
        {"the first row names it",
         ";;B;b;;;;;;;;;;;;\r\n;;B;other;;;;;D;d;;;;;;\r\n",
         "2:B=b 5:D=d ",
         2},
        {"a name of an empty index", ";a;;;;;;;;;;;;;;\n", "", 1},
        {"an index without a name", ";;;;;;;;;;;;;;S;\n", "9:S= ", 1},
        {"one index at two levels", "S;a;;;;;;;;;;;;;S;s\n", "1:S=a 9:S=s ", 1},
        {"blanks are not part of units", " A ;\ta b ;;;;;;;;;;;;;; \n", "1:A=a b ", 1},
        {"every level",
         "A;a;B;b;C;c;D;d;E;e;F;f;G;g;H;h\n# a remark\n\n",
         "1:A=a 2:B=b 3:C=c 4:D=d 5:E=e 7:F=f 8:G=g 9:H=h ",
         1},
        {"an empty file", "", "", 0},
    };
    for (const auto& c : cases) {
        const statoTable own(folder.write(L"case.csv", c.text));
        EXPECT_TRUE(own.isOK()) << c.where;
        EXPECT_EQ(allUnits(own), c.units) << c.where;
        EXPECT_EQ(own.getRawDataList().size(), c.rows) << c.where;
    }
    const statoTable own(folder.write(L"raw.csv", " A ;a;;;;;;;;;;;;;;h;i\n"));
    EXPECT_EQ(own.getRawDataList()[0][0], L" A ") << "rows are kept as they were read";
    EXPECT_EQ(own.getRawDataList()[0][15], L"h");
}

TEST_F(ChartTest, chartsAreReadInTheirEncoding) {
    const std::string text = ";;;;;;;;Є;Кембрийская;;;;;Є2m;Майский\n";
    const std::wstring wide = ts::strconv::fromUtf8(text);
    struct {
        const char* where;
        std::string bytes;
    } const cases[] = {
        {"UTF-8", text},
        {"UTF-8 with a mark", "\xEF\xBB\xBF" + text},
        {"windows-1251", ts::strconv::encode(wide, ts::strconv::windows1251)},
        {"UTF-16", "\xFF\xFE" + ts::strconv::encode(wide, ts::strconv::utf16le)},
    };
    for (const auto& c : cases) {
        const statoTable own(folder.write(L"case.csv", c.bytes));
        EXPECT_EQ(allUnits(own), "5:Є=Кембрийская 9:Є2m=Майский ") << c.where;
    }
    // bytes that make likelier words in another code page
    using namespace ts::strconv;
    const std::string words = encode(L"девонская система", koi8r);
    const statoTable own(folder.write(L"odd.csv", ";;;;;;;;D;" + words + ";;;;;;\n"));
    EXPECT_EQ(own.getElements(NORLEX_taxonSystem)[0].name, decode(words, windows1251));
}

TEST_F(ChartTest, aChartThatCannotBeReadIsEmpty) {
    const struct {
        const char* where;
        std::wstring path;
        const char* says;
    } cases[] = {
        {"missing", folder / L"none.csv", "none.csv"},
        {"a folder", folder.path(), ""},
        {"a line of more than a megabyte",
         folder.write(L"long.csv", smallChart::text() + std::string(2U << 20U, ';')),
         "long.csv is too long"},
    };
    for (const auto& c : cases) {
        refuse({});
        const statoTable own(c.path);
        EXPECT_FALSE(own.isOK()) << c.where;
        EXPECT_NE(toUtf8(NORLEX_lastError()).find(c.says), std::string::npos) << c.where;
        EXPECT_NE(NORLEX_lastError(), L"") << c.where;
        EXPECT_EQ(allUnits(own), "");
        EXPECT_TRUE(own.getRawDataList().empty());
        EXPECT_EQ(smallChart::identified(own, "D1-{D2+C1}"), "");
        EXPECT_EQ(own.identifySingle(L"D1"), nullptr);
        EXPECT_EQ(own.findElement(unit(NORLEX_taxonSeries, L"D1"), NORLEX_taxonSystem), nullptr);
        EXPECT_EQ(own.getContaining(L"D1", NORLEX_taxonSystem, false), L"");
        EXPECT_EQ(own.findIndex(NORLEX_taxonSystem, L"D"), -1);
        EXPECT_TRUE(own.getUIYarusList().empty());
    }
}

TEST_F(ChartTest, unitsAreFoundInThoseThatContainThem) {
    struct {
        NORLEX_taxonType level;
        const wchar_t* index;
        NORLEX_taxonType asked;
        const char* found;
    } const cases[] = {
        {NORLEX_taxonStage, L"D2a", NORLEX_taxonSystem, "D"},
        {NORLEX_taxonStage, L"D2a", NORLEX_taxonSeries, "D2"},
        {NORLEX_taxonStage, L"D2a", NORLEX_taxonSubSeries, "none"},
        {NORLEX_taxonStage, L"D2a", NORLEX_taxonStage, "D2a"},
        {NORLEX_taxonSeries, L"V2", NORLEX_taxonAkrotema, "P"},
        {NORLEX_taxonSeries, L"V2", NORLEX_taxonEratema, "none"},
        {NORLEX_taxonSystem, L"D", NORLEX_taxonStage, "none"}, // does not contain it
        {NORLEX_taxonSystem, L"D", NORLEX_taxonSubSystem, "none"},
        {NORLEX_taxonSystem, L"D", NORLEX_taxonUndefined, "none"},
        {NORLEX_taxonSystem, L"X", NORLEX_taxonSystem, "none"},
        {NORLEX_taxonSeries, L"D", NORLEX_taxonSystem, "none"}, // D is no series
    };
    for (const auto& c : cases)
        EXPECT_EQ(shown(chart.findElement(unit(c.level, c.index), c.asked)), c.found)
            << toUtf8(c.index) << " at " << c.asked;
}

TEST_F(ChartTest, unitsKnowWhatIsAboveAndBelow) {
    struct {
        NORLEX_taxonType level;
        const wchar_t* index;
        const char* upper;
        const char* up;
        const char* down;
    } const cases[] = {
        {NORLEX_taxonStage, L"C1b", "C1.2", "F Z C C1 C1.2", ""},
        {NORLEX_taxonStage, L"D1a", "D1", "F Z D D1", ""}, // over the level that is not there
        {NORLEX_taxonSystem, L"V", "P2", "P P2", "V1 V2"},
        {NORLEX_taxonSystem, L"C", "Z", "F Z", "C1 C2 C1.1 C1.2 C2.1 C1a C1b"},
        {NORLEX_taxonAkrotema, L"A", "none", "", "A1"},
        {NORLEX_taxonEonotema, L"X", "none", "", ""},
    };
    for (const auto& c : cases) {
        const element given = unit(c.level, c.index);
        std::vector<element> up = {given};
        std::vector<element> down = {given};
        chart.fillTaxonRangeUp(given, up);
        chart.fillTaxonRangeDown(given, down);
        const std::string own = toUtf8(c.index);
        EXPECT_EQ(shown(chart.getUpper(given)), c.upper) << own;
        EXPECT_EQ(shown(up), own + (*c.up == 0 ? "" : " ") + c.up) << own;
        EXPECT_EQ(shown(down), own + (*c.down == 0 ? "" : " ") + c.down) << own;
        const element* const known = chart.identifySingle(c.index);
        if (known != nullptr) {
            EXPECT_EQ(shown(known->related),
                      c.up + std::string(*c.up != 0 && *c.down != 0 ? " " : "") + c.down);
        }
    }
}

TEST_F(ChartTest, levelsAreListedFromTheOldest) {
    EXPECT_EQ(chart.getUniqVals(NORLEX_taxonSystem),
              (std::vector<std::wstring>{L"V", L"D", L"C", L"J"}));
    EXPECT_TRUE(chart.getUniqVals(NORLEX_taxonSubSystem).empty());
    EXPECT_TRUE(chart.getUniqVals(static_cast<NORLEX_taxonType>(77)).empty());
    EXPECT_EQ(shown(chart.getUIYarusList()), "D1a D1b D2a C1a C1b");
    EXPECT_EQ(chart.findIndex(NORLEX_taxonSystem, L"C"), 2);
    EXPECT_EQ(chart.findIndex(NORLEX_taxonSystem, L"uC"), -1) << "a name is no index";
    EXPECT_EQ(chart.findIndex(NORLEX_taxonSeries, L"C"), -1);
}

TEST_F(ChartTest, unitsAreEqualByLevelAndIndex) {
    const element d = unit(NORLEX_taxonSystem, L"D");
    element other = d;
    other.name = L"another";
    EXPECT_TRUE(d == other);
    EXPECT_TRUE(d != unit(NORLEX_taxonSeries, L"D"));
    EXPECT_TRUE(d != unit(NORLEX_taxonSystem, L"d"));
}

TEST_F(ChartTest, rangesAreOfferedByLevelsOfTheChart) {
    std::wstring out;
    for (const auto& [level, text] : strategraphy::stratoRangeTypeModel())
        out += std::to_wstring(level) + L" " + text + L", ";
    EXPECT_EQ(out,
              L"0 не определен, 1 Акротема, 2 Эонотема, 3 Подэонотема, 4 Эратема, 5 Система, "
              L"7 Отдел, 8 Подотдел, 9 Ярус, ");
}

TEST_F(ContainerTest, theChartIsReadWhenItIsThereAndThenHeld) {
    const temp_folder data;
    setenv("WELLDB_DATA", toUtf8(data.path()).c_str(), 1);
    EXPECT_FALSE(container->getStrategraphy()->isOK());
    EXPECT_NE(lastError().find("strategraphy/strato_base.csv"), std::string::npos) << lastError();
    data.write(L"strategraphy/strato_base.csv", smallChart::text());
    const auto chart = container->getStrategraphy();
    EXPECT_EQ(shown(chart->getElements(NORLEX_taxonSystem)), "V D C J");
    data.write(L"strategraphy/strato_base.csv", "");
    EXPECT_EQ(container->getStrategraphy(), chart);
    unsetenv("WELLDB_DATA");
}

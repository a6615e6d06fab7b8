// Index expressions over a small chart.
#include "tests/strat/small_chart.h"

#include <gtest/gtest.h>

using smallChart::identified;
using strategraphy::element;
using strategraphy::statoTable;
using ts::strconv::fromUtf8;
using ts::strconv::toUtf8;

namespace {

class ExpressionTest : public testing::Test {
protected:
    [[nodiscard]] std::string unknown(const std::string& text) const {
        std::vector<element> units;
        std::vector<std::wstring> pieces = {L"goes away"};
        chart.identify(fromUtf8(text), units, pieces);
        std::string out;
        for (const auto& piece : pieces)
            out += "[" + toUtf8(piece) + "]";
        return out;
    }

    temp_folder folder;
    const statoTable chart{folder.write(L"small.csv", smallChart::text())};
};

std::string repeated(const std::string& text, std::size_t times) {
    std::string out;
    for (std::size_t i = 0; i < times; ++i)
        out += text;
    return out;
}

} // namespace

TEST_F(ExpressionTest, expressionsNameUnits) {
    struct {
        const char* where;
        const char* text;
        const char* units;
    } const cases[] = {
        {"an index", "D1", "D1"},
        {"a name", "uD1", "D1"},
        {"case counts", "d1", ""},
        {"nothing", "", ""},
        {"blanks", " \t ", ""},
        {"blanks around pieces", "  D1 +\tuC2  ", "D1 C2"},
        {"blanks within one", "D 1", ""},
        {"both", "D1+C2", "D1 C2"},
        {"in the order of the text", "J+D", "J D"},
        {"each once", "D1+D1+uD1", "D1"},
        {"a range", "D1-C2", "D1 D2 C1 C2"},
        {"of one unit", "D1-D1", "D1"},
        {"a range and more", "D1-C1+J3+V1-V2", "D1 D2 C1 J3 V1 V2"},
        {"a chain", "D1-D2-C1", "D1 D2 C1"},
        {"there and back", "C1-D2-C2", "D2 C1 C2"},
        {"a reversed range", "J2-C1", "C1 C2 J1 J2"},
        {"what is unknown splits a range", "D1-X-C1", "D1 C1"},
        {"an unknown end", "D1-X", "D1"},
        {"an unknown piece", "X+D1+Y", "D1"},
        {"empty pieces", "-D1+-D2--C1+", "D1 D2 C1"},

        {"a higher end in its extent", "D-C1a", "D1a D1b D2a C1a"},
        {"a higher end below", "D2a-C1", "D2a C1a C1b"},
        {"the nearest units above", "D2a-J2", "D2a C1a C1b C2.1 J1 J2"},
        {"in a chain, for all of it", "D1-D2-C1a", "D1a D1b D2a C1a"},
        {"an end within the other", "D1-D", "D1 D2"},
        {"an end within the other, first", "D-D1", "D1 D2"},
        {"where the level is jumped over", "R1-Z", "R1 V Z"},
        {"where it is not there yet", "A-R", "A1 P1 R"},
        {"from the top", "A-F", "A1 P1 P2 F"},
        {"subseries and series", "D2-C1.2", "D2 C1.1 C1.2"},
        {"to what has none of the level", "C1.2-J1", "C1.2 C2.1 J1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(identified(chart, c.text), c.units) << c.where << ": " << c.text;
}

TEST_F(ExpressionTest, bracesAreWrittenOut) {
    struct {
        const char* text;
        const char* plain;
        const char* units;
    } const cases[] = {
        {"J1", "J1", "J1"},
        {"{J1-J2}+D", "J1-J2+D", "J1 J2 D"},
        {"{{J1}-{{J2}}}", "J1-J2", "J1 J2"},
        {"J{1-3}", "J1-J3", "J1 J2 J3"},
        {"J{ 1 + 3 }", "J1+J3", "J1 J3"},
        {"J{1}", "J1", "J1"},
        {"D+J{1+3}-C2", "D+J1+J3-C2", "D J1 C2 J2 J3"},
        {"J{1-2}+D{1+2}", "J1-J2+D1+D2", "J1 J2 D1 D2"},
        {"C1{a-b}", "C1a-C1b", "C1a C1b"},
        {"D{1+2}a", "D1a+D2a", "D1a D2a"},
        {"D{1}{a-b}", "D1a-D1b", "D1a D1b"},
        {"{D1+C1}{a+b}", "D1a+D1b+C1a+C1b", "D1a D1b C1a C1b"},
        {"D{1{a+b}+2}", "D1a+D1b+D2", "D1a D1b D2"},
        {"{D{1-2}-C1}", "D1-D2-C1", "D1 D2 C1"},
        {"u{D+J}", "uD+uJ", "D J"},
        {"J {1-2}", "J 1-J 2", ""}, // a blank before a brace is part of the index
        {"J{}", "", ""},
        {"J{1+}", "J1+", "J1"},
        {"J{+}1", "+", ""},
        {"{J1-J2", "J1-J2", "J1 J2"},
        {"J{1-2", "J1-J2", "J1 J2"},
        {"J1}-J2", "J1-J2", "J1 J2"},
        {"}}J1{{", "", ""}, // what touches an empty group names nothing
        {"{}", "", ""},
        {"{-}", "-", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toUtf8(statoTable::breakBraces(fromUtf8(c.text))), c.plain) << c.text;
        EXPECT_EQ(identified(chart, c.text), c.units) << c.text;
    }
}

TEST_F(ExpressionTest, whatIsNotInTheChartIsTold) {
    const char* const cases[][2] = {
        {"D1", ""},
        {"D1-X", "[X]"},
        {" X y +D1+ W ", "[X y][W]"},
        {"J{1-4}", "[J4]"},
        {"++-", ""},
        {"", ""},
    };
    for (const auto& [text, pieces] : cases)
        EXPECT_EQ(unknown(text), pieces) << text;
}

TEST_F(ExpressionTest, theHighestLevelIsFoundFirst) {
    const statoTable own(folder.write(L"own.csv",
                                      ";;;;;;;;S;x;;;;;T;y\n"
                                      ";;;;;;;;T;z;;;;;S;w\n"
                                      ";;;;;;;;U;S;;;;;;\n"
                                      ";;;;;;;;V;v;;;;;A-B;C+D\n"));
    const auto level = [&](const wchar_t* text) {
        const auto* const unit = own.identifySingle(text);
        return unit == nullptr ? 0 : static_cast<int>(unit->type);
    };
    EXPECT_EQ(level(L"S"), 5);
    EXPECT_EQ(level(L"T"), 5);
    EXPECT_EQ(level(L"y"), 9);
    EXPECT_EQ(level(L""), 0);
    EXPECT_EQ(own.identifySingle(L"S")->name, L"x") << "U is named S, but stands behind it";
    EXPECT_EQ(level(L"A-B"), 9);
    EXPECT_EQ(identified(own, " A-B "), "A-B") << "the whole text goes before its pieces";
    EXPECT_EQ(identified(own, "C+D"), "A-B");
    EXPECT_EQ(identified(own, "C+D+U"), "U");
}

TEST_F(ExpressionTest, rangesAreAddedToWhatIsThere) {
    const auto* const d = chart.identifySingle(L"D");
    const auto* const j1 = chart.identifySingle(L"J1");
    std::vector<element> units = {*chart.identifySingle(L"C2"), *d};
    chart.addRange(*j1, *d, units);
    EXPECT_EQ(smallChart::shown(units), "C2 D D1 D2 C1 J1");
    chart.addRange(*d, {L"", L"X", NORLEX_taxonSystem, {}}, units);
    EXPECT_EQ(units.size(), 6U);
}

TEST_F(ExpressionTest, containingUnitsAreAnExpressionAgain) {
    struct {
        const char* text;
        NORLEX_taxonType level;
        const char* indexes;
        const char* names;
    } const cases[] = {
        {"D1a", NORLEX_taxonSystem, "D", "uD"},
        {"D1a", NORLEX_taxonStage, "D1a", "uD1a"},
        {"D", NORLEX_taxonStage, "", ""},
        {"D1a-C1b", NORLEX_taxonSystem, "D-C", "uD-uC"},
        {"C1b-D1a", NORLEX_taxonSeries, "D1-C1", "uD1-uC1"},
        {"D1-C1", NORLEX_taxonStage, "", ""},
        {"D1-D2", NORLEX_taxonSystem, "D", "uD"},
        {"D1+D2", NORLEX_taxonSystem, "D", "uD"},
        {"D1+D2", NORLEX_taxonSeries, "D1+D2", "uD1+uD2"},
        {"D1+J1-J3+D2", NORLEX_taxonSystem, "D+J", "uD+uJ"},
        {"D1+J1-J3+X", NORLEX_taxonSeries, "D1+J1-J3", "uD1+uJ1-uJ3"},
        {"D1", NORLEX_taxonSubSystem, "", ""},
        {"X", NORLEX_taxonSystem, "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toUtf8(chart.getContaining(fromUtf8(c.text), c.level, false)), c.indexes)
            << c.text << " at " << c.level;
        EXPECT_EQ(toUtf8(chart.getContaining(fromUtf8(c.text), c.level, true)), c.names);
    }
    const statoTable own(folder.write(L"own.csv", ";;;;;;;;S;;;;;;T;y\n"));
    EXPECT_EQ(own.getContaining(L"y", NORLEX_taxonSystem, true), L"S") << "it has no name";
}

TEST_F(ExpressionTest, hostileExpressionsEndAndTheRestIsFound) {
    struct {
        const char* where;
        std::string text;
        const char* units;
    } const cases[] = {
        {"nested", "J3+" + repeated("{", 10000) + "J1" + repeated("}", 10000), "J3 J1"},
        {"never closed", "J3+" + repeated("{", 10000) + "J1", "J3 J1"},
        {"never opened", "J3+J1" + repeated("}", 10000), "J3 J1"},
        {"nested prefixes", "J3+" + repeated("J{", 10000) + "1" + repeated("}", 10000), "J3"},
        {"pieces at every level", "J3+" + repeated("J{1+", 10000), "J3 J1"},
        {"products", "J3+" + repeated("{J+J}", 10000) + "+J1", "J3 J1"},
        {"products in products", "J3+" + repeated("{J{1+2}", 5000) + repeated("}", 5000), "J3"},
        {"side by side", "J3" + repeated("+J{1-2}", 20000), "J3 J1 J2"},
        {"many in one group", "J3+{" + repeated("J1+", 200000) + "J2}", "J3 J1 J2"},
        {"too many to be written out", "J3+J{" + repeated("1+", 200000) + "2}", "J3"},
        {"a long name", "J3+J{" + std::string(100000, '1') + "}", "J3"},
        {"ranges", repeated("P2-J3+", 20000), "R1 V1 V2 D1 D2 C1 C2 J1 J2 J3"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(identified(chart, c.text), c.units) << c.where;
        EXPECT_LT(statoTable::breakBraces(fromUtf8(c.text)).size(), c.text.size() + (1U << 20U))
            << c.where;
    }
}

// 256 pieces are the most that a group is written out to, and 128 characters of a piece.
TEST_F(ExpressionTest, groupsAreWrittenOutUpToALimit) {
    const auto group = [](std::size_t pieces) { return "J{" + repeated("1+", pieces - 1) + "2}"; };
    EXPECT_EQ(identified(chart, group(256)), "J1 J2");
    EXPECT_EQ(identified(chart, group(257)), "");
    const std::string longest(128, 'n');
    const statoTable own(folder.write(L"own.csv",
                                      smallChart::line(". . . . " + longest + " . . .")
                                          + smallChart::line(". . . . " + longest + "n . . .")));
    EXPECT_EQ(identified(own, "n{" + longest.substr(1) + "}"), longest);
    EXPECT_EQ(identified(own, "n{" + longest + "}"), "");
    EXPECT_EQ(identified(own, longest + "n"), longest + "n") << "no group, no limit";
}

// D1 stands in two places: a range that begins behind the first does not have it.
TEST_F(ExpressionTest, aUnitStandsWhereItIsFirst) {
    std::string rows;
    for (const char* index : {"D1", "D2", "D1", "D3"})
        rows += smallChart::line(std::string(". . . . D ") + index + " . .");
    const statoTable own(folder.write(L"own.csv", rows));
    EXPECT_EQ(identified(own, "D2-D3"), "D2 D3");
    EXPECT_EQ(identified(own, "D1-D2"), "D1 D2");
}

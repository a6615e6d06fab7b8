// Correlations read from long and wide tables, and written as wide ones.
#include "NORLEX_correlation.h"
#include "NORLEX_correlationTable.h"
#include "NORLEX_well.h"
#include "tests/support/container_fixture.h"

namespace {

class CorrelationTableTest : public ContainerTest {
protected:
    using store = correlation::correlation;
    using options = NORLEX_correlationTableOptions;

    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        for (const auto& well : {first, second, namesake}) {
            ASSERT_TRUE(NORLEX_well::create(db(), well)) << lastError();
            NORLEX_well made(db(), well);
            ASSERT_TRUE(made.setAltitude(100) && made.setAttribute(L"No", well.field + well.name));
        }
    }

    [[nodiscard]] static options wide() {
        options out;
        out.correlation = {L"Cor", L"G"};
        out.isWide = true;
        return out;
    }
    [[nodiscard]] static options lengthy() {
        options out = wide();
        out.isWide = false;
        return out;
    }

    [[nodiscard]] NORLEX_correlationTableResult import(const std::string& text,
                                                       const options& with) {
        folder.write(L"t.csv", text);
        return NORLEX_importCorrelation(db(), folder / L"t.csv", with);
    }

    [[nodiscard]] std::string exported(bool areAbsolute = false) {
        NORLEX_correlationExportOptions with;
        with.correlation = {L"Cor", L"G"};
        with.areAbsolute = areAbsolute;
        const auto result = NORLEX_exportCorrelation(db(), folder / L"out.csv", with);
        return result.ok ? temp_folder::read(folder / L"out.csv")
                         : ts::strconv::toUtf8(result.error);
    }

    // "row: reason" of each bad row.
    [[nodiscard]] static std::string faults(const NORLEX_tableReport& report) {
        std::string out;
        for (const auto& one : report.errors)
            out += std::to_string(one.row) + ": " + ts::strconv::toUtf8(one.reason) + "\n";
        return out;
    }

    const NORLEX_wellDescription first{L"O", L"F", L"1", 0};
    const NORLEX_wellDescription second{L"O", L"F", L"2", 0};
    const NORLEX_wellDescription namesake{L"O", L"x", L"1", 0};
};

TEST_F(CorrelationTableTest, longTablesAreReadByColumns) {
    auto with = lengthy();
    with.well = {0, L"hole"};
    with.border = {0, L"Top"};
    with.depth = {0, L"MD"};
    with.group = {0, L"grp"};
    with.type = {5, L""};
    with.rows.skipWithoutDepth = true;
    const auto result = import("Top;MD;Hole;grp;t\n"
                               "b;20,5;O/F/1;g;\n"
                               "a;10;2;;7\n"
                               "a;;O/F/1;;\n"
                               "a;30;O/x/1;;0\n",
                               with);
    ASSERT_TRUE(result.ok) << lastError() << faults(result.report);
    EXPECT_EQ(result.report.taken, 3U);
    EXPECT_EQ(result.report.passedOver, 1U);
    EXPECT_EQ(result.picks.borders, 2U);
    EXPECT_EQ(result.picks.mirrors, 3U);
    EXPECT_EQ(exported(), "well,b,a\r\nO/F/1,20.5,\r\nO/F/2,,10\r\nO/x/1,,30\r\n");
    EXPECT_EQ(store::getBorderGroup(db(), with.correlation, L"b"), L"g");
    EXPECT_EQ(row(L"SELECT depth_real, depth_abs, type FROM correlation_data WHERE type = 7"),
              L"10 90 7");
}

TEST_F(CorrelationTableTest, codesAndAttributesAreLookedUp) {
    folder.write(L"codes.csv", "100;Горизонт\n200;b\n");
    auto with = lengthy();
    with.wellAttribute = L"No";
    with.borderLookup = folder / L"codes.csv";
    with.areAbsolute = true;
    with.rows.hasHeader = false;
    ASSERT_TRUE(import("F1;100;20\nx1;200;-5\n", with).ok) << lastError();
    EXPECT_EQ(exported(), "well,Горизонт,b\r\nO/F/1,80,\r\nO/x/1,,105\r\n");
    EXPECT_EQ(faults(import("F2;300;20\n", with).report),
              "1: column 2: \"300\" is not in the table of codes\n");
}

TEST_F(CorrelationTableTest, wideTablesReadBackAsTheyWereWritten) {
    const std::string table =
        "well,c,\"a;b\",never\r\nO/F/1,1.25,,\r\nO/F/2,,-3,\r\nO/x/1,5,6,\r\n";
    const auto result = import(table, wide());
    ASSERT_TRUE(result.ok) << lastError();
    EXPECT_EQ(result.picks.inserted, 4U);
    EXPECT_EQ(exported(), table); // with the border that no well has
    EXPECT_EQ(exported(true).substr(0, 47),
              "well,c,\"a;b\",never\r\nO/F/1,98.75,,\r\nO/F/2,,100,\r");
    auto again = wide();
    EXPECT_FALSE(import(table, again).ok);
    again.onExisting = correlation::onExistingPick::skip;
    const auto skipped = import("well,c\n2,7\nO/F/1,9\n", again);
    EXPECT_TRUE(skipped.ok);
    EXPECT_EQ(skipped.report.taken, 1U);
    EXPECT_EQ(skipped.report.passedOver, 1U);
    again.onExisting = correlation::onExistingPick::move;
    EXPECT_EQ(import("well,c\nO/F/1,9\n", again).picks.moved, 1U);
    EXPECT_EQ(exported(), "well,c,\"a;b\",never\r\nO/F/1,9,,\r\nO/F/2,7,-3,\r\nO/x/1,5,6,\r\n");
}

TEST_F(CorrelationTableTest, badRowsAreNamedAndLeaveNothing) {
    const std::string table = "well,border,depth\n"
                              "1,a,10\n"      // of two wells
                              "2,a,deep\n"    //
                              "2,,10\n"       //
                              "2,a,10\n"      // the good one
                              "2,a,11\n"      // again
                              "2,b,3000000\n" //
                              "9,a,10\n"      //
                              "2,c,\n";
    auto with = lengthy();
    const auto result = import(table, with);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(faults(result.report),
              "2: 2 wells are \"1\"\n"
              "3: column 3: \"deep\" is no depth\n"
              "4: the name of the border is empty; one character or more is expected\n"
              "6: the border \"a\" comes twice on the well O / F / 2\n"
              "7: the depth 3e+06 is no depth; a number between -2000000 and 2000000 is expected\n"
              "8: there is no well \"9\"\n"
              "9: column 3: \"\" is no depth\n");
    EXPECT_EQ(
        row(L"SELECT (SELECT count(*) FROM correlation), (SELECT count(*) FROM correlation_borders), (SELECT count(*) FROM property)"),
        L"0 0 0");
    with.rows.keepGoodRows = true;
    EXPECT_EQ(import(table, with).report.taken, 1U);
    EXPECT_EQ(exported(), "well,a\r\nO/F/2,10\r\n");
}

// A row is taken whole or not at all.
TEST_F(CorrelationTableTest, badCellOfAWideTableTakesItsRowAlong) {
    auto with = wide();
    with.rows.keepGoodRows = true;
    const auto result = import("well,a,b\nO/F/1,1,x\nO/F/1,2,3\n2,4,3e6\n2,5,6\n", with);
    ASSERT_TRUE(result.ok) << lastError();
    EXPECT_EQ(result.report.badCount, 2U);
    EXPECT_EQ(exported(), "well,a,b\r\nO/F/1,2,3\r\nO/F/2,5,6\r\n");
}

TEST_F(CorrelationTableTest, tablesThatAreNoneAreRefused) {
    struct {
        const char* table;
        bool isWide;
        const char* says;
    } const cases[] = {
        {"", true, "is empty"},
        {"well\nO/F/1\n", true, "no column of a border"},
        {"well,a,a\nO/F/1,1,2\n", true, "columns 2 and 3"},
        {"well,a\n", true, "no rows of data"},
        {"well,border\nO/F/1,a\n", false, "column 3"},
    };
    for (const auto& one : cases) {
        const auto result = import(one.table, one.isWide ? wide() : lengthy());
        EXPECT_FALSE(result.ok) << one.says;
        EXPECT_NE(ts::strconv::toUtf8(result.error).find(one.says), std::string::npos)
            << ts::strconv::toUtf8(result.error);
    }
    EXPECT_EQ(exported(), "there is no correlation \"Cor\"");
    EXPECT_FALSE(NORLEX_importCorrelation(nullptr, L"x", wide()).ok);
}

} // namespace

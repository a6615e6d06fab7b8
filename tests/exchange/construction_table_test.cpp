#include "tests/wells/well_fixture.h"

#include "NORLEX_wellConstruction.h"
#include "tableReader.h"

TEST_F(WellTest, aConstructionIsReadFromATable) {
    folder.write(L"c.csv", "from;to;bit;note\n0;120,5;393.7;conductor\n120.5;900;;\"a;b\"\n");
    auto construction = well().getConstruction();
    NORLEX_tableReport report;
    NORLEX_construction_load_options columns;
    columns.from_dig = L"from";
    columns.to_dig = L"2";
    columns.diametr_dig = L"Bit";
    columns.comment = L"note";
    ASSERT_TRUE(construction.loadElementsFromFile(folder / L"c.csv", {}, columns, report))
        << lastError();
    const auto sections = construction.getElementList();
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].to_dig, 120.5);
    EXPECT_EQ(sections[1].diametr_dig, 0.0);
    EXPECT_EQ(sections[1].comment, L"a;b");
    folder.write(L"bad.csv", "from;to\n0;10\n10;5\nx;5\n");
    columns.diametr_dig = columns.comment = L"";
    EXPECT_FALSE(construction.loadElementsFromFile(folder / L"bad.csv", {}, columns, report));
    EXPECT_EQ(report.badCount, 2U);
    EXPECT_EQ(report.errors[0].row, 3U);
    EXPECT_EQ(construction.getElementCount(), 2);
    columns.from_dig = L"absent";
    EXPECT_FALSE(construction.loadElementsFromFile(folder / L"bad.csv", {}, columns, report));
}

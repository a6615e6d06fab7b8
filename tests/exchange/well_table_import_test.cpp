#include "NORLEX_wellTableImport.h"

#include "tests/exchange/table_fixture.h"
#include "tests/support/content_snapshot.h"
#include "tests/support/every_failure.h"

namespace {

class WellTableTest : public TableTest {
protected:
    // name;x;y;altitude;bottom;SitID without a header, all of work object O and field F.
    static NORLEX_wellTableOptions columns() {
        NORLEX_wellTableOptions out;
        out.name = column(1);
        out.x = column(2);
        out.y = column(3);
        out.altitude = column(4);
        out.bottom = column(5);
        out.attributes = {{L"SitID", column(6)}};
        out.workObject = L"O";
        out.fieldName = L"F";
        out.format.separator = ';';
        out.hasHeader = false;
        return out;
    }
    NORLEX_wellTableResult loadWells(const std::string& text,
                                     const NORLEX_wellTableOptions& options) {
        return NORLEX_wellTableImport(db(), options).importFile(folder.write(L"wells.csv", text));
    }
    // Names, position, altitude, bottom and the attribute.
    std::wstring well(const NORLEX_wellDescription& description) {
        const NORLEX_well one(db(), description);
        return row(L"SELECT work_object, field, name, x, y, altitude, bottom FROM well_base WHERE "
                   L"w_id = "
                   + std::to_wstring(one.getID()))
               + L" " + one.getAttribute(L"SitID");
    }
    static NORLEX_wellDescription named(const wchar_t* name) { return {L"O", L"F", name, 0}; }
    failing::statements faults;
};

} // namespace

TEST_F(WellTableTest, rowsBecomeWells) {
    const auto loaded =
        loadWells("C;1,5;-2;3;1000,126;id 7\nD;;;;;\n\"00/12-08-067-01W4/0\"\n", columns());
    ASSERT_TRUE(loaded.ok) << lastError();
    EXPECT_EQ(loaded.created, 3U);
    EXPECT_EQ(loaded.report.taken, 3U);
    EXPECT_EQ(well(named(L"C")), L"O F C 1.5 -2 3 1000.13 id 7"); // two decimals are stored
    EXPECT_EQ(well(named(L"D")), L"O F D 0 0 0  ");
    EXPECT_EQ(well(named(L"00/12-08-067-01W4/0")), L"O F 00/12-08-067-01W4/0 0 0 0  ");
    EXPECT_EQ(cell(L"SELECT count(*) FROM meta WHERE m_group = 'well'"), L"1"); // no empty ones
    EXPECT_EQ(cell(L"SELECT count(distinct(UUID)) FROM well_base"), L"6");
    ASSERT_TRUE(NORLEX_well::create(db(), named(L"E"))); // keys go on behind those of the table
}

TEST_F(WellTableTest, namesComeFromColumnsAndConstants) {
    auto options = columns();
    options.hasHeader = true;
    options.name = {0, L"UWI"};
    options.field = {0, L"Field"};
    options.x = options.y = options.altitude = options.bottom = {};
    options.attributes = {};
    ASSERT_TRUE(loadWells("Field;UWI (AGS);UWI\nNorth;1;'C'\n;2;D\n", options).ok) << lastError();
    EXPECT_NE(NORLEX_well::getID(db(), {L"O", L"North", L"C", 0}), 0U);
    EXPECT_NE(NORLEX_well::getID(db(), named(L"D")), 0U);
}

TEST_F(WellTableTest, badRowsAreNamedAndLeaveNothing) {
    const std::string table = "C;1\nA;1\n;1\nC;2\nD;far\n" + std::string(300, 'x') + "\nE\n";
    const auto before = contentSnapshot::take(*container);
    const auto refused = loadWells(table, columns());
    EXPECT_FALSE(refused.ok);
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    const wchar_t* const reasons[] = {L"O / F / A exists already",
                                      L"name is empty",
                                      L"O / F / C stands on row 1 already",
                                      L"\"far\" is no number",
                                      L"too long"};
    ASSERT_EQ(refused.report.errors.size(), std::size(reasons));
    for (std::size_t i = 0; i < std::size(reasons); ++i) {
        EXPECT_EQ(refused.report.errors[i].row, i + 2);
        EXPECT_NE(refused.report.errors[i].reason.find(reasons[i]), std::wstring::npos)
            << ts::strconv::toUtf8(refused.report.errors[i].reason);
    }
    auto options = columns();
    options.keepGoodRows = true;
    const auto kept = loadWells(table, options);
    EXPECT_TRUE(kept.ok) << lastError();
    EXPECT_EQ(kept.created, 2U);
    EXPECT_EQ(all(L"SELECT name FROM well_base ORDER BY w_id"), L"A,B,A,C,E");
    EXPECT_FALSE(loadWells("F\n", {}).ok); // no column with the names
}

TEST_F(WellTableTest, existingWellsAreSkippedOrUpdated) {
    ASSERT_TRUE(NORLEX_well(db(), a).setAttribute(L"SitID", L"old"));
    ASSERT_TRUE(NORLEX_well(db(), a).setPosition(1, 2));
    ASSERT_TRUE(load("O/F/A;10;n\n", points()).ok) << lastError();
    auto options = columns();
    options.onExisting = NORLEX_onExistingWell::skip;
    const auto skipped = loadWells("A;7;8;9;10;new\nC\n", options);
    EXPECT_TRUE(skipped.ok) << lastError();
    EXPECT_EQ(skipped.report.passedOver, 1U);
    EXPECT_EQ(well(a), L"O F A 1 2 100  old");

    options.onExisting = NORLEX_onExistingWell::update;
    const auto updated = loadWells("A;7;;200;10;new\nB;;;;;first\nC;;;;;\n", options);
    EXPECT_TRUE(updated.ok) << lastError();
    EXPECT_EQ(updated.updated, 3U);
    EXPECT_EQ(well(a), L"O F A 7 2 200 10 new"); // an empty cell changes nothing
    EXPECT_EQ(well(b), L"O F B 0 0 50  first");
    EXPECT_EQ(records(a, tops), L"10/190 n ; "); // the absolute depths follow the altitude
    EXPECT_EQ(cell(L"SELECT count(*) FROM meta WHERE m_group = 'well'"), L"2");

    ASSERT_TRUE(db()->exec(L"UPDATE well_base SET update_date = ''"));
    EXPECT_TRUE(loadWells("A;7;2;200;10;new\nB;;;50;;second\n", options).ok) << lastError();
    EXPECT_EQ(all(L"SELECT name FROM well_base WHERE update_date <> ''"), L"B"); // what differs
    EXPECT_EQ(well(b), L"O F B 0 0 50  second");
}

// More wells than a statement takes rows, or keys.
TEST_F(WellTableTest, thousandsOfWellsAreMadeAndFilled) {
    constexpr int count = 5200;
    std::string wells, rows;
    for (int i = 1; i <= count; ++i) {
        wells += "W" + std::to_string(i) + ";" + std::to_string(i) + ";;;;id\n";
        rows += "W" + std::to_string(i) + ";" + std::to_string(i) + ";n\n";
    }
    EXPECT_EQ(loadWells(wells, columns()).created, 5200U) << lastError();
    EXPECT_EQ(cell(L"SELECT count(*) FROM well_base WHERE name = 'W' || cast(x as integer)"),
              L"5200");
    EXPECT_EQ(cell(L"SELECT count(*) FROM meta WHERE m_group = 'well'"), L"5200");
    EXPECT_EQ(load(rows, points()).created, 5200U) << lastError();
    ASSERT_TRUE(db()->exec(L"UPDATE property SET update_date = ''"));
    ASSERT_TRUE(db()->exec(L"UPDATE well_base SET update_date = ''"));
    EXPECT_EQ(load(rows, points()).wells, 5200U) << lastError();
    EXPECT_EQ(cell(L"SELECT count(*) FROM property WHERE update_date <> ''"), L"5200");
    EXPECT_EQ(cell(L"SELECT count(*) FROM well_base WHERE update_date <> ''"), L"5200");
    EXPECT_EQ(records(named(L"W5200"), tops), L"5200/-5200 n ; 5200/-5200 n ; ");
}

TEST_F(WellTableTest, whateverFailsLeavesEverythingAsItWas) {
    const auto path = folder.write(L"failing.csv", "A;7;8;9;10;new\nC;1;2;3;4;id\n");
    auto options = columns();
    options.onExisting = NORLEX_onExistingWell::update;
    const auto run = [&] { return NORLEX_wellTableImport(db(), options).importFile(path).ok; };
    failing::forEveryFailedQuery(*container, faults, "wells, query", run);
    failing::forEveryFailure(*container, faults, "wells", run);
}

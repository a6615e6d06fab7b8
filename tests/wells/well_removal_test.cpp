#include "tests/wells/well_fixture.h"

#include "platform/sql_text.h"

using namespace sqlText;

namespace {

// A row of every table that knows wells, for the well; `tag` keeps texts of two wells apart.
void fillWell(odbc_database* db, std::uint32_t id, const NORLEX_wellDescription& names) {
    NORLEX_well well(db, names);
    ASSERT_TRUE(well.createProperty(NORLEX_dataTypeMarker, {L"M", L"G"}));
    ASSERT_TRUE(well.createProperty(NORLEX_dataTypeInterval, {L"I", L"G"}));
    ASSERT_TRUE(well.createProperty(NORLEX_dataTypeBorder, {L"cor", L""}));
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(db, id, {L"GR", L"LAS"}, L"", {{1, 2, 3}}));
    ASSERT_TRUE(well.openProperty({L"M", L"G"})->setAttribute(L"K", L"V"));
    ASSERT_TRUE(well.loadInclFromData({well.getIncl() ? inclData{10} : inclData{}}, true));
    const std::wstring attached = NORLEX_getWellPath(db, names) + L"attached/scan.png";
    ASSERT_TRUE(files::makeFolder(files::folderOf(attached)));
    ASSERT_TRUE(files::put(files::openWrite(attached).get(), "scan"));
    const auto run = [db](const std::wstring& statement) { ASSERT_TRUE(db->exec(statement)); };
    const std::int64_t link = well.openProperty({L"M", L"G"})->getID();
    run(L"INSERT INTO file_link (pr_id, path, name) VALUES(" + key(link) + L", 'p', 'n')");
    for (const auto* kind : {L"point_data (depth, depth_abs, type) VALUES(1, -1, 0)",
                             L"interval_data (top, bot, top_abs, bot_abs) VALUES(1, 2, -1, -2)"}) {
        const bool isPoint = kind[0] == L'p';
        const auto property = well.openProperty({isPoint ? L"M" : L"I", L"G"});
        for (int record = 0; record < 2; ++record) {
            run(std::wstring(L"INSERT INTO ") + kind);
            for (const auto& field : property->getFields()) {
                run(L"INSERT INTO val (f_id, value, obj_id) VALUES (" + key(field.fieldId)
                    + L", 'v', (SELECT max(obj_id) FROM "
                    + (isPoint ? L"point_data" : L"interval_data") + L"))");
                run(L"INSERT INTO prop_link (obj_id, fld_id, file_name) VALUES (1, "
                    + key(field.fieldId) + L", 'f')");
            }
        }
    }
    const std::wstring w = key(id);
    run(L"INSERT INTO meta (m_group, obj_id, key, value) VALUES ('well', " + w + L", 'k', 'v')");
    run(L"INSERT INTO well_construction (w_id) VALUES (" + w + L")");
    run(L"INSERT INTO construction (w_id, type) VALUES (" + w + L", 1)");
    run(L"INSERT INTO vdm_data (w_id, depth, time) VALUES (" + w + L", 1, 1)");
    run(L"INSERT INTO well_info (w_id) VALUES (" + w + L")");
    run(L"INSERT INTO well_executors (w_id) VALUES (" + w + L")");
    run(L"INSERT INTO well_drilling (w_id) VALUES (" + w + L")");
    run(L"INSERT INTO well_stat_vals (w_id, wf_id) VALUES (" + w + L", 1)");
    run(L"INSERT INTO correlation_data (w_id, b_id, depth_real, depth_abs) VALUES (" + w
        + L", 1, 1, 1)");
    run(L"INSERT INTO well_info_values (i_id, w_id) VALUES (1, " + w + L")");
    run(L"INSERT INTO file_folder_link (w_id, name) VALUES (" + w + L", 'n')");
}

} // namespace

// The neighbour is filled alike: what is removed must be the one well's and all of it.
TEST_F(WellTest, removingAWellTakesItsRowsAndFilesAndNoOthers) {
    const NORLEX_wellDescription neighbour{L"O", L"F", L"W-2", 0};
    ASSERT_TRUE(NORLEX_well::create(db(), neighbour));
    ASSERT_TRUE(db()->exec(L"INSERT INTO correlation (cor_id, name) VALUES (1, 'cor')"));
    ASSERT_TRUE(
        db()->exec(L"INSERT INTO correlation_borders (b_id, cor_id, name) VALUES (1, 1, 'b')"));
    fillWell(db(), NORLEX_well::getID(db(), neighbour), neighbour);
    auto before = everything();
    fillWell(db(), wellId(), names);
    const auto both = everything();
    before[L"well_base"] = "1";
    for (const auto* table : tables)
        EXPECT_NE(before[table], both.at(table))
            << "the test leaves it empty: " << ts::strconv::toUtf8(table);
    ASSERT_TRUE(NORLEX_well::remove(db(), names)) << lastError();
    EXPECT_EQ(everything(), before);
    EXPECT_FALSE(files::isFolder(NORLEX_getWellPath(db(), names)));
    EXPECT_TRUE(files::isFolder(NORLEX_getFieldPath(db(), L"O", L"F"))) << "the neighbour is in it";

    ASSERT_TRUE(NORLEX_well::remove(db(), neighbour)) << lastError();
    EXPECT_FALSE(files::isFolder(NORLEX_getFieldPath(db(), L"O", L"F")));
    for (const auto& [what, count] : everything())
        EXPECT_EQ(count, "0") << ts::strconv::toUtf8(what);
    EXPECT_FALSE(NORLEX_well::remove(db(), names));
}

TEST_F(WellTest, aRemovalThatIsRolledBackLeavesRowsAndFiles) {
    fillWell(db(), wellId(), names);
    const auto before = everything();
    {
        transaction outer(db());
        ASSERT_TRUE(outer.isOpen() && NORLEX_well::remove(db(), names));
        EXPECT_FALSE(NORLEX_well::isExist(db(), names));
    }
    EXPECT_EQ(everything(), before);

    // a table that is gone makes the last statements fail
    ASSERT_TRUE(db()->exec(L"ALTER TABLE well_stat_vals RENAME TO elsewhere"));
    EXPECT_FALSE(NORLEX_well::remove(db(), names));
    ASSERT_TRUE(db()->exec(L"ALTER TABLE elsewhere RENAME TO well_stat_vals"));
    EXPECT_EQ(everything(), before);
}

TEST_F(WellTest, removingAPropertyTakesWhatBelongsToIt) {
    ASSERT_TRUE(db()->exec(L"INSERT INTO correlation (cor_id, name) VALUES (1, 'cor')"));
    ASSERT_TRUE(
        db()->exec(L"INSERT INTO correlation_borders (b_id, cor_id, name) VALUES (1, 1, 'b')"));
    fillWell(db(), wellId(), names);
    auto w = well();
    const auto count = [this](const wchar_t* table) {
        return cell(std::wstring(L"SELECT count(*) FROM ") + table);
    };
    // two records of two fields are in each geometry table
    ASSERT_TRUE(w.removeProperty({L"M", L"G"}));
    EXPECT_EQ(count(L"point_data"), L"0");
    EXPECT_EQ(count(L"interval_data"), L"2");
    EXPECT_EQ(count(L"val"), L"4");
    EXPECT_EQ(count(L"meta WHERE m_group = 'property'"), L"0");
    EXPECT_EQ(count(L"file_link"), L"0");
    EXPECT_EQ(count(L"correlation_data"), L"1");
    ASSERT_TRUE(w.removeProperty({L"cor", L""}));
    EXPECT_EQ(count(L"correlation_data"), L"0");
    ASSERT_TRUE(NORLEX_wellProperty::removeSilent(db(), wellId(), {L"I'", L"G"}));
    EXPECT_EQ(count(L"interval_data"), L"0");
    EXPECT_EQ(count(L"val"), L"0");
    ASSERT_TRUE(w.removeProperty({L"GR", L"LAS"}));
    EXPECT_FALSE(files::isFile(samplePath({L"GR", L"LAS"})));
    EXPECT_EQ(count(L"field"), L"0");
    EXPECT_EQ(w.getPropertyCount(), 0);

    EXPECT_EQ(count(L"construction"), L"1");
    ASSERT_TRUE(w.createProperty(NORLEX_dataTypeConstruction, {L"C", L""}));
    ASSERT_TRUE(w.removeProperty({L"C", L""}));
    EXPECT_EQ(count(L"construction"), L"0");
    EXPECT_EQ(count(L"well_construction"), L"0");
    EXPECT_FALSE(w.removeProperty({L"C", L""}));
}

#include "platform/files.h"
#include "store/schema.h"
#include "store/table_columns.h"
#include "tests/support/container_fixture.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

// The texts of tables and indexes as the database holds them, in order of creation. (It keeps them
// without IF NOT EXISTS; its own tables are left out.)
std::string listing(odbc_database& db) {
    std::string lines;
    const auto rows =
        db.query(L"SELECT sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY rowid");
    while (rows && rows->next())
        lines += ts::strconv::toUtf8(rows->get_text(0)) + "\n";
    return lines;
}

std::vector<std::wstring> names(std::span<const schema::table> tables) {
    std::vector<std::wstring> found;
    for (const auto& table : tables)
        found.emplace_back(table.name);
    return found;
}

using list = std::vector<std::wstring>;

} // namespace

// Other programs read these tables. WELLDB_REFRESH_GOLDEN=1 writes the file anew.
TEST_F(ContainerTest, newContainerHasTheListedSchema) {
    SKIP_ON_SERVER();
    const std::string path = WELLDB_SOURCE_DIR "/tests/store/schema_v36.txt";
    const std::string found = listing(*db());
    if (std::getenv("WELLDB_REFRESH_GOLDEN") != nullptr)
        std::ofstream(path, std::ios::binary) << found;
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(found, std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST_F(ContainerTest, makingTablesTwiceChangesNothing) {
    const std::string before = listing(*db());
    ASSERT_TRUE(db()->exec(L"INSERT INTO vdm_data (w_id) VALUES (1)"));
    EXPECT_TRUE(schema::create(*db(), schema::containerTables()));
    EXPECT_TRUE(schema::createIndexes(*db()));
    EXPECT_EQ(listing(*db()), before);
    EXPECT_EQ(cell(L"SELECT count(*) FROM vdm_data"), L"1");
}

// The parts are those that the schema's versions 21, 24, 25 and 30 brought.
TEST(Schema, partsHoldTheirTables) {
    EXPECT_EQ(names(schema::statisticsTables()),
              (list{L"well_stat_table",
                    L"well_stat_fld",
                    L"well_stat_vals",
                    L"well_stat_fld_formula",
                    L"well_stat_fld_stat",
                    L"well_stat_fld_filter"}));
    EXPECT_EQ(names(schema::passportTables()),
              (list{L"well_info_struct", L"well_info_values", L"dict_info_link"}));
    EXPECT_EQ(names(schema::attachedFileTables()), (list{L"file_link", L"file_doc_link"}));
    EXPECT_EQ(names(schema::plotTemplateTables()), list{L"planshet_template"});
    EXPECT_EQ(names(schema::dictionaryTables()),
              (list{L"dict_main", L"dict_values", L"dict_link"}));
}

TEST(Schema, singleTablesAreMadeByName) {
    odbc_database db;
    ASSERT_TRUE(db.connect(":memory:"));
    EXPECT_TRUE(schema::create(db, L"zones"));
    EXPECT_FALSE(schema::create(db, L"borders")); // of older containers only
    EXPECT_TRUE(schema::create(db, schema::dictionaryTables()));
    EXPECT_TRUE(schema::create(db, schema::journalTables()));
    EXPECT_EQ(
        listing(db),
        "CREATE TABLE zones (z_id INTEGER PRIMARY KEY AUTOINCREMENT,  top_name TEXT NOT NULL,"
        "  bot_name TEXT NOT NULL,  name TEXT NOT NULL,  comment TEXT)\n"
        "CREATE TABLE dict_main (dict_id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL,"
        " UUID TEXT, create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)\n"
        "CREATE TABLE dict_values (v_id INTEGER PRIMARY KEY AUTOINCREMENT, code TEXT NOT NULL,"
        " value TEXT NOT NULL, dict_id INTEGER NOT NULL)\n"
        "CREATE TABLE dict_link (link_id INTEGER PRIMARY KEY AUTOINCREMENT, p_group TEXT NOT NULL,"
        " prop TEXT NOT NULL, field TEXT NOT NULL, dict_id INTEGER NOT NULL, UUID TEXT,"
        " create_date TEXT, update_date TEXT, create_user TEXT, update_user TEXT)\n"
        "CREATE TABLE log_table (user TEXT, cur_date TEXT, object TEXT, action TEXT, comment TEXT)\n");
}

// The same columns in the same order on a server, in its own types.
TEST_F(ContainerTest, newContainerHasTheListedColumns) {
    if (!testEngine::isServer())
        GTEST_SKIP() << "the listing of a local file holds them";
    for (const auto& table : schema::containerTables()) {
        std::wstring declared;
        for (const auto& column : schema::columnsOf(table))
            declared += (declared.empty() ? L"" : L",") + ts::strconv::lower(column.name)
                        + (column.isText ? L" text" : L"");
        EXPECT_EQ(
            all(L"SELECT column_name || CASE WHEN data_type = 'text' THEN ' text' ELSE '' END "
                L"FROM information_schema.columns WHERE table_name = '"
                + std::wstring(table.name) + L"' ORDER BY ordinal_position"),
            declared);
    }
}

TEST_F(ContainerTest, batchLoadDropsTheIndexesAndBuildsThemAgain) {
    const std::wstring indexes =
        testEngine::isServer()
            ? L"SELECT indexname FROM pg_indexes WHERE schemaname = 'public' AND indexname LIKE '%_index' ORDER BY indexname"
            : L"SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name";
    ASSERT_TRUE(container->beginBatchLoad());
    EXPECT_EQ(all(indexes), L"");
    ASSERT_TRUE(container->endBatchLoad());
    EXPECT_EQ(all(indexes), L"field_index,property_index,val_field_index");
}

// Keys of deleted rows stay in references; depths are numbers, values are text.
TEST_F(ContainerTest, storesKeysDepthsAndValuesAsDeclared) {
    ASSERT_TRUE(db()->exec(L"INSERT INTO point_data (depth, depth_abs, type) VALUES ('1', 2, 0)"));
    ASSERT_TRUE(db()->exec(L"DELETE FROM point_data"));
    ASSERT_TRUE(db()->exec(L"INSERT INTO point_data (depth, depth_abs, type) VALUES ('1', 2, 0)"));
    ASSERT_TRUE(db()->exec(L"INSERT INTO val (f_id, value, obj_id) VALUES (1, 007.50, 2)"));
    ASSERT_TRUE(db()->exec(L"INSERT INTO val (f_id, value, obj_id) VALUES (1, ' 007.50 ', 2)"));
    EXPECT_EQ(row(L"SELECT obj_id, depth + 0.5 FROM point_data"), L"2 1.5");
    EXPECT_EQ(cell(L"SELECT value FROM val WHERE v_id = 1"),
              testEngine::isServer() ? L"7.50" : L"7.5");
    EXPECT_EQ(cell(L"SELECT value FROM val WHERE v_id = 2"), L" 007.50 ");
}

// Every older version is brought to the current one with all that it held.
#include "store/journal.h"
#include "tests/store/upgrade_fixture.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

// Columns by name, "table.column type notnull key"; those that a later version added stand last in
// an upgraded table, and the type of a point may be NULL there.
disk::list columns(odbc_database& db) {
    disk::list found;
    const auto rows = db.query(
        L"SELECT m.name || '.' || c.name || ' ' || c.type || ' ' || (c.\"notnull\" AND m.name || '.' || c.name <> 'point_data.type') || ' ' || c.pk || ' ' || (c.pk AND m.sql LIKE '%AUTOINCREMENT%') FROM sqlite_master AS m INNER JOIN pragma_table_info(m.name) AS c WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite_%' AND m.name NOT LIKE 'dict_main%' AND m.name NOT LIKE 'dict_values%' AND m.name NOT LIKE 'dict_link%' ORDER BY 1");
    while (rows && rows->next())
        found.push_back(rows->get_text(0));
    return found;
}

disk::list indexes(odbc_database& db) {
    disk::list found;
    const auto rows = db.query(
        L"SELECT sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL ORDER BY 1");
    while (rows && rows->next())
        found.push_back(rows->get_text(0));
    return found;
}

struct expectation {
    int from; // versions before the upgrade
    int to;
    const wchar_t* query;
    const wchar_t* result;
};

// clang-format off
const expectation expectations[] = {
    {1, 35, L"SELECT group_concat(version) FROM base_version", L"36"},
    {1, 4, L"SELECT group_concat(value) FROM meta WHERE key = 'projection'", L"+proj=longlat +towgs84 = 28, -130, -95, 0, 0, 0, 0 + ellps = krass +no_defs"},
    {5, 35, L"SELECT group_concat(value) FROM meta WHERE key = 'projection'", L"+proj=kept"},

    // templates: the border and construction templates where there were none, and under its present name
    {1, 35, L"SELECT group_concat(name || ':' || substr(type, 16)) FROM (SELECT * FROM base_template ORDER BY name)", L"Век:Column,Граница корреляции:Border,Каротаж:Log,Конструкция:Construction,Маркер:Marker,Порода:Column,Снимки:Rastr"},
    {1, 35, L"SELECT description FROM base_template WHERE type = 'NORLEX_dataTypeBorder'", L"Граница корреляции"},
    {1, 35, L"SELECT group_concat(name || ':' || substr(type, 17)) FROM (SELECT f.* FROM field_template AS f INNER JOIN base_template AS b ON b.bt_id = f.bt_id WHERE b.type <> 'NORLEX_dataTypeConstruction' ORDER BY b.name, f.ft_id)", L"Код ВСЕГЕИ:String,Название:String,Группа:String,Значение:Numeric,Название:String,Описание:Bigstring,Балл:Numeric"},
    {1, 27, L"SELECT prec FROM field_template WHERE name = 'Балл'", L"2"},
    {28, 35, L"SELECT prec FROM field_template WHERE name = 'Балл'", L"4"},
    {1, 35, L"SELECT count(*) FROM field_template WHERE type <> 'NORLEX_fieldTypeNumeric' AND prec IS NOT NULL", L"0"},
    {34, 35, L"SELECT short_name FROM field_template WHERE name = 'Балл'", L"Ball"},

    // wells, properties and their values
    {1, 35, L"SELECT group_concat(work_object || '/' || field || '/' || name || '/' || ifnull(altitude, '') || '/' || x) FROM well_base", L"Объект/Поле/1 \"Б\"/120.5/500100.25,//2//1.0"},
    {1, 35, L"SELECT group_concat(depth || ' ' || angle || ' ' || azimuth) FROM inclinometry", L"0.0 0.0 0.0,1000.0 12.5 270.25"},
    {1, 35, L"SELECT group_concat(bt_id || name || p_group || description) FROM property WHERE pr_id < 5", L"1Пластыd'1,2РазрезГИС,4ГК,4ПСГИС"},
    {1, 35, L"SELECT group_concat(description, ';') FROM property WHERE pr_id > 4", L"scans/r.tif;съёмка / 1987"},
    {1, 35, L"SELECT group_concat(pr_id || name || ':' || substr(type, 17)) FROM field", L"1Название:String,2Код ВСЕГЕИ:String,3Значение:Numeric,4Значение:Numeric"},
    {1, 35, L"SELECT group_concat(f_id || value || '@' || obj_id) FROM val", L"1К1@1,1O'Brien@2,211@1,2@2"},
    {1, 28, L"SELECT group_concat(obj_id || ' ' || depth || ' ' || depth_abs || ' ' || type) FROM point_data", L"1 100.5 20.0 0,2 200.25 -79.75 0"},
    {29, 35, L"SELECT group_concat(obj_id || ' ' || depth || ' ' || depth_abs || ' ' || type) FROM point_data", L"1 100.5 20.0 0,2 200.25 -79.75 3"},
    {1, 35, L"SELECT group_concat(obj_id || ' ' || top || ' ' || bot || ' ' || top_abs || ' ' || bot_abs) FROM interval_data", L"1 10.0 20.5 110.5 100.0,2 20.5 31.0 100.0 89.5"},
    {1, 35, L"SELECT group_concat(file_name || comment) FROM prop_link", L"a.txtc"},
    {1, 35, L"SELECT group_concat(m_group || obj_id || key || value) FROM meta WHERE m_group NOT IN ('container', 'file_changes')", L"property3UNITSAPI"},
    {1, 35, L"SELECT group_concat(d.name || v.code || v.value || l.p_group || l.prop || l.field) FROM dict_main AS d INNER JOIN dict_values AS v ON v.dict_id = d.dict_id INNER JOIN dict_link AS l ON l.dict_id = d.dict_id", L"Породы11песчаникГИСРазрезКод ВСЕГЕИ"},

    // the passport, of columns and of metadata
    {1, 15, L"SELECT count(*) FROM well_info", L"0"},
    {16, 35, L"SELECT group_concat(w_id || ifnull(drillingType, '') || ifnull(drillingRig, '') || ifnull(drillingDocAuther, '') || ifnull(drillingDocChecker, '')) FROM well_info", L"1колонковоеУРБАБ,2"},
    {1, 15, L"SELECT group_concat(s.key || v.w_id || v.value) FROM (SELECT * FROM well_info_values ORDER BY i_id, w_id) AS v INNER JOIN well_info_struct AS s ON s.i_id = v.i_id", L"Оператор1А'Б,Оператор2,UWI177-1"},
    {16, 35, L"SELECT group_concat(s.key || v.w_id || v.value) FROM (SELECT * FROM well_info_values ORDER BY i_id, w_id) AS v INNER JOIN well_info_struct AS s ON s.i_id = v.i_id", L"Тип скважины1Разведочная,Уровень воды112,5,Дата загрузки испытаний11987,Дата загрузки испытаний21988,Оператор1А'Б,Оператор2,UWI177-1"},
    {16, 35, L"SELECT group_concat(order_num || substr(type, 17)) FROM well_info_struct", L"1String,2String,3String,4String,5String"},
    {16, 34, L"SELECT group_concat(short_key) FROM well_info_struct", L"WellType,WaterLevel,TestLoad"},
    {35, 35, L"SELECT group_concat(short_key) FROM well_info_struct", L"own"},
    {1, 35, L"SELECT count(*) FROM well_info_values WHERE w_id > 2", L"0"},

    // attached files
    {1, 35, L"SELECT group_concat(pr_id || path || '|' || name) FROM (SELECT * FROM file_link ORDER BY pr_id, name)", L"1docs/a.pdf|A,1docs\\map.pdf|Map,2Объект\\Поле\\1 %22Б%22\\ГИС\\Разрез_files\\scan.tif|S,2Объект\\Поле\\1 %22Б%22\\ГИС\\Разрез_files\\scan.tif|S again,2Объект\\Поле\\1 %22Б%22\\ГИС\\Разрез_files\\scan_2.tif|S other,3E:\\lost\\x.doc|Lost"},
    {18, 35, L"SELECT comment FROM file_link WHERE name = 'A'", L"к'1"},
    {1, 24, L"SELECT count(doc_id) FROM file_link", L"0"},
    {25, 35, L"SELECT group_concat(l.name || d.name || d.description || d.category) FROM file_link AS l INNER JOIN file_doc_link AS d ON d.doc_id = l.doc_id", L"AОтчётdk,SОтчётdk"},
    {27, 35, L"SELECT group_concat(l.name || f.name) FROM file_link AS l INNER JOIN file_folder_link AS f ON f.f_id = l.f_id", L"Aпапка"},
    {1, 35, L"SELECT group_concat(name) FROM (SELECT name FROM planshet_template ORDER BY name)", L"own,standard"},

    // tables that came with their versions
    {11, 35, L"SELECT group_concat(name || comment || well_ids) FROM profils", L"I-Ic1,2"},
    {15, 35, L"SELECT group_concat(top_name || bot_name || name || comment) FROM zones", L"К1К2zc"},
    {16, 35, L"SELECT group_concat(name || position) FROM well_executors", L"Вмастер"},
    {16, 35, L"SELECT group_concat(date || smena || to_depth) FROM well_drilling", L"1987-05-01112.5"},
    {16, 35, L"SELECT group_concat(to_dig || comment) FROM well_construction", L"30.5c"},
    {1, 19, L"SELECT count(*) FROM construction", L"0"},
    {20, 35, L"SELECT group_concat(type || ' ' || bot_real || text) FROM construction", L"2 50.5пакер"},
    {17, 32, L"SELECT group_concat(c.name || b.name || b.b_group || d.depth_real || ' ' || d.depth_abs || ' ' || d.type) FROM correlation AS c INNER JOIN correlation_borders AS b ON b.cor_id = c.cor_id INNER JOIN correlation_data AS d ON d.b_id = b.b_id", L"ЮраЮ1g100.125 20.375 0"},
    {33, 35, L"SELECT group_concat(d.depth_real || ' ' || d.type) FROM correlation_data AS d", L"100.125 5"},
    {21, 35, L"SELECT group_concat(name || creation_date) || (SELECT group_concat(value) FROM well_stat_vals) FROM well_stat_table", L"stat19993"},
    {32, 35, L"SELECT group_concat(depth || ' ' || time) FROM vdm_data", L"100.0 0.25"},

    // stamps: given where there are none, and left where there are
    {1, 21, L"SELECT count(*) FROM (SELECT UUID, create_date, update_user FROM well_base UNION ALL SELECT UUID, create_date, update_user FROM property UNION ALL SELECT UUID, create_date, update_user FROM base_template UNION ALL SELECT UUID, create_date, update_user FROM base_version UNION ALL SELECT UUID, create_date, update_user FROM dict_main UNION ALL SELECT UUID, create_date, update_user FROM dict_link UNION ALL SELECT UUID, create_date, update_user FROM correlation UNION ALL SELECT UUID, create_date, update_user FROM correlation_borders) WHERE UUID IS NULL OR length(UUID) <> 36 OR create_date NOT LIKE '20__-__-__ __:__:__' OR update_user IS NULL", L"0"},
    {1, 21, L"SELECT count(DISTINCT UUID) FROM (SELECT UUID FROM well_base UNION ALL SELECT UUID FROM property)", L"8"},
    {22, 35, L"SELECT group_concat(UUID || create_date || create_user) FROM well_base", L"old-12001x,old-22001x"},
    {22, 35, L"SELECT count(*) FROM (SELECT UUID FROM property UNION ALL SELECT UUID FROM base_template UNION ALL SELECT UUID FROM dict_main UNION ALL SELECT UUID FROM dict_link UNION ALL SELECT UUID FROM correlation UNION ALL SELECT UUID FROM correlation_borders) WHERE UUID NOT LIKE 'old-%'", L"0"},
};
// clang-format on

std::string bytes(const std::vector<double>& numbers) {
    std::string out(numbers.size() * sizeof(double), '\0');
    std::memcpy(out.data(), numbers.data(), out.size());
    return out;
}

constexpr double missing = 1.7976931348623157e308;

// A sample file as docs/formats.md draws it, byte by byte.
std::string sampleFile(double smallest, double largest, const std::vector<double>& samples) {
    const auto count = static_cast<char>(samples.size() / 3);
    return std::string("\xfe\xff\xff\xff\0\0\0\0", 8)
           + bytes({smallest, largest, (largest - smallest) / 2, missing, 0, 0, 0, 0, 0, 0})
           + std::string({count, '\0', '\0', '\0'}) + bytes({missing}) + bytes(samples);
}

} // namespace

class UpgradeChainTest : public UpgradeTest, public testing::WithParamInterface<int> {
protected:
    void SetUp() override {
        SKIP_ON_SERVER();
        UpgradeTest::SetUp();
        make(GetParam());
        backup = path + L".v" + sqlText::key(GetParam()) + L".bak";
        gamma = folder / L"wells/Объект/Поле/1 %22Б%22/ГК.wpdb";
    }

    void expectData() {
        for (const auto& e : expectations)
            if (GetParam() >= e.from && GetParam() <= e.to) {
                EXPECT_EQ(cell(*container->getBaseLink(), e.query), e.result)
                    << ts::strconv::toUtf8(e.query);
            }
    }

    void expectFiles() {
        const std::wstring well = folder / L"wells/Объект/Поле/1 %22Б%22/";
        if (GetParam() < 7) {
            EXPECT_EQ(disk::read(gamma),
                      sampleFile(
                          -7.25,
                          3.75,
                          {10, 110.5, 2.5, 11, 109.5, 3.75, 12, 108.5, -7.25, 13, 107.5, missing}));
            EXPECT_EQ(disk::read(well + L"ГИС/ПС.wpdb"), sampleFile(1000, 1000, {50, 70.5, 1000}));
        }
        if (GetParam() < 27) {
            EXPECT_EQ(disk::read(well + L"ГИС/Разрез_files/scan.tif"), "scan");
            EXPECT_EQ(disk::read(well + L"ГИС/Разрез_files/scan_2.tif"), "another");
        }
        if (GetParam() < 31) {
            EXPECT_EQ(disk::names(folder / L"wells/planshet"),
                      (disk::list{L"own.pt", L"standard.pt"}));
            EXPECT_EQ(disk::read(folder / L"wells/planshet/own.pt"), "<own/>");
        }
        // The copy of the older database still finds its files.
        EXPECT_EQ(disk::names(folder / L"wells/planshetTmpl"),
                  (disk::list{L"notes.txt", L"own.pt"}));
        EXPECT_EQ(disk::read(folder / L"outside/scan.tif"), "scan");
    }

    void expectBackup() {
        odbc_database old;
        ASSERT_TRUE(old.connect(files::native(backup).string()));
        EXPECT_EQ(cell(old, L"SELECT version FROM base_version"), sqlText::key(GetParam()));
        EXPECT_EQ(cell(old, L"PRAGMA integrity_check"), L"ok");
        EXPECT_EQ(disk::names(folder.path()), (disk::list{L"wells.well2", files::nameOf(backup)}));
    }

    std::wstring backup;
    std::wstring gamma;
};

TEST_P(UpgradeChainTest, bringsEverythingToTheCurrentVersion) {
    ASSERT_TRUE(open()) << lastError();
    EXPECT_EQ(questions,
              disk::list{L"База данных " + path + L" создана более ранней версией. Обновить её?"});
    EXPECT_EQ(container->getVersionStatus(), NORLEX_versionStatus::current);
    expectData();
    expectFiles();
    const auto entries = journal::read(*container->getBaseLink());
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].object + L"/" + entries[0].action + L"/" + entries[0].comment, L"18/6/");

    ASSERT_TRUE(open()) << lastError();
    EXPECT_EQ(questions.size(), 1U); // of the first time
    EXPECT_TRUE(errors.empty());
    expectData();
    container.reset();
    expectBackup();
}

TEST_P(UpgradeChainTest, hasTheSchemaOfANewContainer) {
    ASSERT_TRUE(open()) << lastError();
    const auto fresh = NORLEX_wellContainer::makeDescription(folder / L"new.well2");
    ASSERT_TRUE(NORLEX_wellContainer::create(fresh)) << lastError();
    const NORLEX_wellContainer other(fresh);
    ASSERT_TRUE(other.isOK());
    EXPECT_EQ(columns(*container->getBaseLink()), columns(*other.getBaseLink()));
    EXPECT_EQ(indexes(*container->getBaseLink()), indexes(*other.getBaseLink()));
}

// A program that ran the steps one by one and was killed leaves a version that is not yet the
// current one over tables that are: its steps run again.
TEST_P(UpgradeChainTest, runsAgainOverItsOwnResult) {
    ASSERT_TRUE(open()) << lastError();
    const std::wstring stamps = L"SELECT group_concat(UUID) FROM (SELECT UUID FROM property UNION "
                                L"ALL SELECT UUID FROM base_template)";
    const std::wstring uuids = cell(*container->getBaseLink(), stamps);
    const int kept = GetParam() < 27 ? GetParam() : 27; // folders of files are younger
    ASSERT_TRUE(container->getBaseLink()->exec(
        sqlText::sql(L"UPDATE base_version SET version = ", sqlText::key(kept))));
    ASSERT_TRUE(open()) << lastError();
    EXPECT_EQ(questions.size(), 2U);
    EXPECT_EQ(cell(*container->getBaseLink(), stamps), uuids);
    expectFiles();
    if (GetParam() < 20)
        expectData();
}

INSTANTIATE_TEST_SUITE_P(Versions,
                         UpgradeChainTest,
                         testing::Range(1, 36),
                         [](const auto& version) { return "v" + std::to_string(version.param); });

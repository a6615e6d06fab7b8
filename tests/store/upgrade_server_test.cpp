// An older container on a server comes to the same rows as a local one.
#include "store/table_columns.h"
#include "tests/store/upgrade_fixture.h"
#include "tests/support/test_engine.h"

#include <algorithm>
#include <map>

class ServerUpgradeTest : public UpgradeTest, public testing::WithParamInterface<int> {
protected:
    void SetUp() override {
        if (!testEngine::isServer() || testEngine::isMissing())
            GTEST_SKIP() << "of a server only";
        UpgradeTest::SetUp();
    }

    // What a column holds on every engine: some are new each time, and the passport's keys are
    // given in an order that each engine chooses.
    static bool isSteady(const std::wstring& column) {
        return column != L"UUID" && column.find(L"_date") == std::wstring::npos
               && column.find(L"_user") == std::wstring::npos && column != L"i_id"
               && column != L"order_num" && column != L"id";
    }

    // The rows of every table. Paths have the separators of the file directory that they lie in.
    static std::map<std::wstring, std::vector<std::wstring>> rowsOf(odbc_database& db) {
        std::map<std::wstring, std::vector<std::wstring>> out;
        for (const auto& table : schema::containerTables()) {
            std::wstring columns;
            for (const auto& column : schema::columnsOf(table))
                if (isSteady(column.name))
                    columns += (columns.empty() ? L"" : L", ") + column.name;
            auto& rows = out[std::wstring(table.name)];
            const auto found =
                db.query(L"SELECT " + columns + L" FROM " + std::wstring(table.name));
            EXPECT_TRUE(found) << ts::strconv::toUtf8(db.last_error());
            while (found && found->next()) {
                rows.emplace_back();
                for (int i = 0; i < found->column_count(); ++i)
                    rows.back() += found->get_text(i) + L'|';
                std::ranges::replace(rows.back(), L'\\', L'/');
                if (rows.back().find(L"file_changes") != std::wstring::npos)
                    rows.pop_back(); // the marker of a finished change
            }
            std::ranges::sort(rows);
        }
        return out;
    }
    // Old rows have keys of their own.
    static void tellKeys(odbc_database& db) {
        for (const auto& table : schema::containerTables()) {
            const std::wstring name(table.name);
            if (table.after.empty() || !db.query(L"SELECT 1 FROM " + name + L" WHERE 1 = 0"))
                continue;
            EXPECT_TRUE(db.keys_were_given(name, schema::columnsOf(table).front().name));
        }
    }

    testEngine::databases databases;
};

TEST_P(ServerUpgradeTest, comesToTheSameRowsAsALocalOne) {
    make(GetParam());
    ASSERT_TRUE(open()) << lastError();
    const auto local = rowsOf(*container->getBaseLink());
    container.reset();
    const auto localFiles = disk::tree(folder / L"wells");
    ASSERT_TRUE(files::removeTree(folder / L"wells") && files::removeTree(folder / L"outside"));

    makeFiles();
    const std::wstring name = databases.make();
    {
        odbc_database db;
        ASSERT_TRUE(db.connect(testEngine::connectionTo(std::string(name.begin(), name.end()))));
        fill(db, GetParam(), folder / L"wells/");
        tellKeys(db);
    }
    folder.write(L"wells.well2", testEngine::databases::descriptionOf(name, folder / L"wells/"));
    ASSERT_TRUE(open()) << lastError();
    EXPECT_TRUE(errors.empty());
    const auto server = rowsOf(*container->getBaseLink());
    for (const auto& [table, rows] : local)
        EXPECT_EQ(server.at(table), rows) << ts::strconv::toUtf8(table);
    container.reset();
    EXPECT_EQ(disk::tree(folder / L"wells").size(), localFiles.size());
}

INSTANTIATE_TEST_SUITE_P(Versions,
                         ServerUpgradeTest,
                         testing::Range(1, 36),
                         [](const auto& version) { return "v" + std::to_string(version.param); });

// An upgrade that does not come to its end leaves the container as it was.
#include "tests/store/upgrade_fixture.h"
#include "tests/support/killed_child.h"
#include "tests/support/run_figures.h"

namespace {

bool contains(const std::wstring& text, const std::wstring& part) {
    return text.find(part) != std::wstring::npos;
}

const killedChild::program upgrader("upgrader", [](const killedChild::task& task) {
    NORLEX_setYesNoBox([](const std::wstring&) { return true; });
    task.ready();
    const NORLEX_wellContainer container(
        NORLEX_wellContainer::makeDescription(files::wide(task.argument)));
    static_cast<void>(task.returned(container.isOK()));
});

} // namespace

class LocalUpgradeTest : public UpgradeTest {
protected:
    void SetUp() override {
        SKIP_ON_SERVER();
        UpgradeTest::SetUp();
    }
};

TEST_F(LocalUpgradeTest, answerNoLeavesEverything) {
    for (const int version : {1, 21, 35}) {
        SCOPED_TRACE(version);
        disk::write(path, "");
        ASSERT_TRUE(files::removeFile(path));
        make(version);
        const auto before = disk::tree(folder.path());
        answer = false;
        EXPECT_FALSE(open());
        EXPECT_EQ(NORLEX_lastError(),
                  L"cannot open " + path + L": it is of version " + sqlText::key(version)
                      + L", version 36 is needed; its upgrade was not agreed to");
        EXPECT_EQ(disk::read(path), made);
        EXPECT_EQ(disk::tree(folder.path()), before);
        EXPECT_TRUE(errors.empty());
        EXPECT_TRUE(NORLEX_wellContainer::isContCanOpen(
            NORLEX_wellContainer::makeDescription(path))); // without asking
    }
    EXPECT_EQ(questions.size(), 3U);
}

TEST_F(LocalUpgradeTest, withoutCopyThereIsNoUpgrade) {
    make(12);
    folder.write(L"wells.well2.v12.bak.part/in the way", "x");
    EXPECT_FALSE(open());
    EXPECT_TRUE(contains(NORLEX_lastError(), L"wells.well2.v12.bak.part")) << lastError();
    EXPECT_EQ(errors,
              disk::list{L"Не удалось обновить базу данных " + path + L" до текущей версии."});
    EXPECT_EQ(disk::read(path), made);
    EXPECT_FALSE(files::isFile(path + L".v12.bak"));
}

// Samples that cannot be written, or a statement that the database rejects: all of the steps are
// undone, in the database and in the files.
TEST_F(LocalUpgradeTest, failureOfAStepUndoesAll) {
    struct {
        const char* where;
        const wchar_t* statement; // before the upgrade
        const wchar_t* file;      // in the way
        const wchar_t* line;      // a part of it
    } const cases[] = {
        {"the samples of the logs", nullptr, L"wells/.pending", L".pending"},
        {"the last step",
         L"CREATE TRIGGER t BEFORE DELETE ON meta WHEN old.m_group = 'well' BEGIN SELECT "
         L"RAISE(ABORT, 'kept by a trigger'); END",
         L"x",
         L"kept by a trigger"},
        {"the stamps of rows",
         L"CREATE TRIGGER t BEFORE UPDATE ON dict_link BEGIN SELECT RAISE(FAIL, 'no stamps'); END",
         L"x",
         L"no stamps"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.where);
        for (const auto& name : {path, path + L".v3.bak"})
            ASSERT_TRUE(files::removeFile(name));
        make(3);
        if (c.statement != nullptr) {
            odbc_database db;
            ASSERT_TRUE(db.connect(files::native(path).string()) && db.exec(c.statement));
            db.disconnect();
            made = disk::read(path);
        }
        folder.write(c.file, "x");
        const auto before = disk::tree(folder / L"wells");
        errors.clear();
        EXPECT_FALSE(open());
        EXPECT_TRUE(contains(NORLEX_lastError(), c.line)) << lastError();
        EXPECT_EQ(errors.size(), 1U);
        container.reset();
        EXPECT_EQ(disk::read(path), made);
        EXPECT_EQ(disk::tree(folder / L"wells"), before);
        ASSERT_TRUE(files::removeFile(folder / c.file));
    }
}

// A copy that is there is kept; it stands for the new one when it holds the same.
TEST_F(LocalUpgradeTest, earlierCopiesStay) {
    make(35);
    disk::write(path + L".v35.bak", "of the user's");
    disk::write(path + L".v35.bak.part", "of a killed program");
    disk::write(path + L".v35.bak.part-journal", "of a killed program");
    ASSERT_TRUE(open()) << lastError();
    container.reset();
    EXPECT_EQ(disk::read(path + L".v35.bak"), "of the user's");
    const std::string copy = disk::read(path + L".v35-2.bak");
    ASSERT_TRUE(files::removeFile(path));
    disk::write(path, made);
    ASSERT_TRUE(open()) << lastError();
    container.reset();
    EXPECT_EQ(disk::read(path + L".v35-2.bak"), copy);
    EXPECT_EQ(disk::names(folder.path()),
              (disk::list{L"wells.well2", L"wells.well2.v35-2.bak", L"wells.well2.v35.bak"}));
}

// What a version may lack is no failure: other programs made the tables, or none did.
TEST_F(LocalUpgradeTest, fewTablesAreEnough) {
    for (const int version : {1, 4, 17, 23, 26, 35}) {
        SCOPED_TRACE(version);
        ASSERT_TRUE(files::removeFile(path));
        {
            odbc_database db;
            ASSERT_TRUE(db.connect(files::native(path).string())
                        && db.exec(L"CREATE TABLE base_version (id INTEGER PRIMARY KEY, version "
                                   L"INTEGER)")
                        && db.exec(sqlText::sql(
                            L"INSERT INTO base_version VALUES (1,", sqlText::key(version), L")")));
        }
        ASSERT_TRUE(open()) << lastError();
        EXPECT_EQ(cell(*container->getBaseLink(),
                       L"SELECT count(*) FROM sqlite_master WHERE type = 'table' AND name NOT LIKE "
                       L"'sqlite_%'"),
                  L"36");
        container.reset();
    }
}

// Half of the passport step, as programs leave it that run each statement by itself.
TEST_F(LocalUpgradeTest, passportOfAKilledProgramIsCompleted) {
    const wchar_t* const temporary =
        L"CREATE TABLE well_info_tmp (w_id INTEGER NOT NULL, drillingType TEXT, drillingRig TEXT, "
        L"drillingDocAuther TEXT, drillingDocChecker TEXT)";
    const wchar_t* const row = L"INSERT INTO well_info_tmp VALUES (1, 'колонковое', '', '', '')";
    struct {
        const char* where;
        std::vector<const wchar_t*> statements;
        const wchar_t* headers;
    } const cases[] = {
        {"rows half copied", {temporary, row}, L"1колонковое,2"},
        {"old table dropped", {temporary, row, L"DROP TABLE well_info"}, L"1колонковое"},
        {"neither", {L"DROP TABLE well_info"}, L""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.where);
        for (const auto& name : {path, path + L".v23.bak"})
            ASSERT_TRUE(files::removeFile(name));
        make(23);
        {
            odbc_database db;
            ASSERT_TRUE(db.connect(files::native(path).string()));
            for (const wchar_t* statement : c.statements)
                ASSERT_TRUE(db.exec(statement));
        }
        ASSERT_TRUE(open()) << lastError();
        odbc_database& db = *container->getBaseLink();
        EXPECT_EQ(cell(db, L"SELECT group_concat(w_id || drillingType) FROM well_info"), c.headers);
        EXPECT_EQ(cell(db, L"SELECT count(*) FROM sqlite_master WHERE name = 'well_info_tmp'"),
                  L"0");
        container.reset();
    }
}

class KilledUpgradeTest : public LocalUpgradeTest {
protected:
    static void expectWholeCopy(const std::wstring& name) {
        if (!files::isFile(name))
            return; // killed before it was made
        odbc_database old;
        ASSERT_TRUE(old.connect(files::native(name).string()));
        EXPECT_EQ(cell(old, L"PRAGMA integrity_check"), L"ok");
        EXPECT_EQ(cell(old, L"SELECT group_concat(version) FROM base_version"), L"2");
        EXPECT_EQ(cell(old, L"SELECT count(*) FROM val WHERE f_id = 3"), L"4");
    }
    void makeAnew() {
        for (const auto& name : {path, path + L".v2.bak"})
            ASSERT_TRUE(files::removeFile(name));
        ASSERT_TRUE(files::removeTree(folder / L"wells"));
        make(2);
    }
    // What the upgrade makes of the rows, and what a check says of them.
    [[nodiscard]] std::wstring content() {
        std::wstring out = cell(
            *container->getBaseLink(),
            L"SELECT (SELECT group_concat(name || type) FROM field_template) || (SELECT "
            L"group_concat(value) FROM val) || (SELECT group_concat(value) FROM well_info_values) || "
            L"(SELECT group_concat(path) FROM file_link) || (SELECT group_concat(name) FROM "
            L"planshet_template) || (SELECT group_concat(depth || type) FROM point_data)");
        std::vector<NORLEX_checkFinding> findings;
        EXPECT_TRUE(container->check(findings)) << lastError();
        for (const auto& finding : findings)
            out += L"\n" + finding.kind + L" " + sqlText::key(finding.count);
        return out;
    }
};

// Killed at any moment, the program leaves a whole copy or none, and opening again comes to the
// same end.
TEST_F(KilledUpgradeTest, openingAgainCompletesIt) {
    make(2);
    ASSERT_TRUE(open()) << lastError();
    const std::wstring expected = content();
    container.reset();
    const std::wstring log = folder / L"wells/Объект/Поле/1 %22Б%22/ГК.wpdb";
    const std::string samples = disk::read(log);
    ASSERT_EQ(samples.size(), 100U + 4 * 24);
    killedChild::killer killer("upgrader", files::native(path));
    for (int round = 0; round < killedChild::rounds(30) && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        makeAnew();
        const bool isDone = killer.kill() > 0;
        expectWholeCopy(path + L".v2.bak");
        questions.clear();
        ASSERT_TRUE(open()) << lastError();
        EXPECT_TRUE(!isDone || questions.empty()) << "an upgrade that had returned is gone";
        EXPECT_EQ(content(), expected);
        EXPECT_EQ(disk::read(log), samples);
        container.reset();
        expectWholeCopy(path + L".v2.bak");
        EXPECT_EQ(disk::names(folder.path()), (disk::list{L"wells.well2", L"wells.well2.v2.bak"}));
        EXPECT_FALSE(files::isFolder(folder / L"wells/.pending"));
    }
    EXPECT_GT(killer.inside(), 0U);
    runFigures::tell("kills survived", killer.killed());
}

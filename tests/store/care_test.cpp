#include "platform/archive.h"
#include "platform/sql_text.h"
#include "tests/support/container_fixture.h"

#include <algorithm>

namespace {

using namespace sqlText;

// A container with one well, a log with its sample file, a marker with a point and a value.
class CareTest : public ContainerTest {
protected:
    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        for (
            const wchar_t* statement :
            {L"INSERT INTO well_base (w_id, work_object, field, name, altitude) VALUES (7, 'O', 'F', 'W', 100.25)",
             L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) SELECT 3, 7, min(bt_id), 'GR', 'LAS' FROM base_template WHERE type = 'NORLEX_dataTypeLog'",
             L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group) SELECT 4, 7, min(bt_id), 'M', 'G' FROM base_template WHERE type = 'NORLEX_dataTypeMarker'",
             L"INSERT INTO field (f_id, pr_id, name, type, is_base) VALUES (11, 4, 'n', 'NORLEX_fieldTypeString', 1)",
             L"INSERT INTO point_data (obj_id, depth, depth_abs, type) VALUES (21, 10.5, 89.75, 0)",
             L"INSERT INTO val (v_id, f_id, value, obj_id) VALUES (31, 11, 'Пласт ''1''', 21)"})
            ASSERT_TRUE(db()->exec(statement)) << lastError();
        folder.write(L"wells/O/F/W/LAS/GR.wpdb", "samples");
    }
    static NORLEX_contDescription describe(const std::wstring& path) {
        return NORLEX_wellContainer::makeDescription(path);
    }
    std::vector<NORLEX_checkFinding> found() const {
        std::vector<NORLEX_checkFinding> findings;
        EXPECT_TRUE(container->check(findings)) << lastError();
        return findings;
    }
    // "kind: place count" of each, sorted.
    static std::wstring spelled(const std::vector<NORLEX_checkFinding>& findings) {
        std::vector<std::wstring> lines;
        for (const auto& one : findings)
            lines.push_back(one.kind + L": " + one.place + L" " + std::to_wstring(one.count)
                            + (one.repairable ? L"" : L" stays") + L"\n");
        std::ranges::sort(lines);
        std::wstring out;
        for (const auto& line : lines)
            out += line;
        return out;
    }
    // What a copy of the container must hold, and its files must.
    static void expectCopied(const std::wstring& path, const std::wstring& samples) {
        const NORLEX_wellContainer copy(describe(path));
        ASSERT_TRUE(copy.isOK()) << lastError();
        const auto rows = copy.getBaseLink()->query(
            L"SELECT value || depth || altitude FROM val, point_data, field, property, well_base WHERE val.obj_id = point_data.obj_id AND val.f_id = field.f_id AND field.pr_id = property.pr_id AND property.w_id = well_base.w_id AND v_id = 31 AND well_base.w_id = 7");
        ASSERT_TRUE(rows && rows->next());
        EXPECT_EQ(rows->get_text(0), L"Пласт '1'10.5100.25");
        EXPECT_EQ(temp_folder::read(samples), "samples");
    }
};

TEST_F(CareTest, aCopyHoldsEveryRowUnderItsKey) {
    // A column of numbers may hold a text here.
    ASSERT_TRUE(db()->exec(L"UPDATE well_base SET bottom = ''"));
    ASSERT_TRUE(container->copyTo(describe(folder / L"copy.well2"))) << lastError();
    expectCopied(folder / L"copy.well2", folder / L"copy/O/F/W/LAS/GR.wpdb");
    for (const wchar_t* query : {L"SELECT count(*) FROM base_template",
                                 L"SELECT count(*) FROM field_template",
                                 L"SELECT UUID || create_date FROM base_version",
                                 L"SELECT bottom FROM well_base"}) {
        const NORLEX_wellContainer copy(describe(folder / L"copy.well2"));
        const auto rows = copy.getBaseLink()->query(query);
        ASSERT_TRUE(rows && rows->next());
        EXPECT_EQ(rows->get_text(0), cell(query));
    }
    EXPECT_FALSE(container->copyTo(describe(folder / L"copy.well2"))) << "it is there already";
    expectCopied(folder / L"copy.well2", folder / L"copy/O/F/W/LAS/GR.wpdb");
}

TEST_F(CareTest, checkFindsWhatDoesNotBelongTogether) {
    EXPECT_EQ(spelled(found()), L"");
    const std::pair<const wchar_t*, const wchar_t*> faults[] = {
        {L"DELETE FROM point_data", L"orphan rows: val 1\n"},
        {L"DELETE FROM val", L"orphan rows: point_data 1\n"},
        {L"DELETE FROM field WHERE f_id = 11", L"orphan rows: val 1\n"},
        {L"DELETE FROM property WHERE pr_id = 3", L"sample file without a log: file directory 1\n"},
        {L"UPDATE property SET bt_id = 999 WHERE pr_id = 4", L"orphan rows: property 1 stays\n"},
        {L"UPDATE property SET name = 'DT' WHERE pr_id = 3",
         L"log without a sample file: file directory 1 stays\n"
         L"sample file without a log: file directory 1\n"},
        {L"INSERT INTO well_base (work_object, field, name) VALUES ('O', 'F', 'W')",
         L"duplicate well: well_base 1 stays\n"},
        {L"INSERT INTO meta (m_group, obj_id, key) VALUES ('well', 8, 'k')",
         L"orphan rows: meta 1\n"},
        {L"INSERT INTO correlation_data (w_id, b_id) VALUES (7, 5)",
         L"orphan rows: correlation_data 1\n"},
    };
    for (const auto& [fault, expected] : faults) {
        ASSERT_TRUE(db()->begin_transaction());
        ASSERT_TRUE(db()->exec(fault));
        EXPECT_EQ(spelled(found()), expected) << ts::strconv::toUtf8(fault);
        db()->rollback();
    }
}

TEST_F(CareTest, repairRemovesWhatNothingLeadsTo) {
    ASSERT_TRUE(db()->exec(L"DELETE FROM well_base"));
    std::vector<NORLEX_checkFinding> removed;
    const std::wstring archive = folder / L"before.zip";
    ASSERT_TRUE(container->repair(archive, removed)) << lastError();
    EXPECT_EQ(spelled(removed),
              L"orphan rows: field 1\norphan rows: point_data 1\norphan rows: property 2\n"
              L"orphan rows: val 1\nsample file without a log: file directory 1\n");
    EXPECT_EQ(spelled(found()), L"");
    EXPECT_FALSE(files::isFile(folder / L"wells/O/F/W/LAS/GR.wpdb"));
    EXPECT_FALSE(container->repair(archive, removed)) << "a backup is not overwritten";

    ASSERT_TRUE(NORLEX_wellContainer::restore(archive, describe(folder / L"old.well2"), false));
    EXPECT_EQ(temp_folder::read(folder / L"old/O/F/W/LAS/GR.wpdb"), "samples");
}

TEST_F(CareTest, anArchiveGivesTheContainerBack) {
    const std::wstring archive = folder / L"a.zip";
    ASSERT_TRUE(container->backup(archive)) << lastError();
    ASSERT_TRUE(NORLEX_wellContainer::restore(archive, describe(folder / L"new.well2"), false))
        << lastError();
    expectCopied(folder / L"new.well2", folder / L"new/O/F/W/LAS/GR.wpdb");
    EXPECT_TRUE(files::isFile(folder / L"new/journal.db"));
    EXPECT_FALSE(NORLEX_wellContainer::restore(archive, describe(folder / L"wells.well2"), false));
}

// Only when asked to, and not while it is open.
TEST_F(CareTest, anArchiveReplacesALocalContainer) {
    SKIP_ON_SERVER();
    const std::wstring archive = folder / L"a.zip";
    ASSERT_TRUE(container->backup(archive)) << lastError();
    const auto here = describe(folder / L"wells.well2");
    EXPECT_FALSE(NORLEX_wellContainer::restore(archive, here, false));
    EXPECT_FALSE(NORLEX_wellContainer::restore(archive, here, true));
    ASSERT_TRUE(db()->exec(L"DELETE FROM val"));
    folder.write(L"wells/O/F/W/LAS/GR.wpdb", "changed");
    folder.write(L"wells/O/F/W/LAS/DT.wpdb", "later");
    container.reset();
    ASSERT_TRUE(NORLEX_wellContainer::restore(archive, here, true)) << lastError();
    expectCopied(folder / L"wells.well2", folder / L"wells/O/F/W/LAS/GR.wpdb");
    EXPECT_FALSE(files::isFile(folder / L"wells/O/F/W/LAS/DT.wpdb")) << "not of the backup";
    // Where the database is lost, and the rollback journal of its last writer is not.
    ASSERT_TRUE(files::removeFile(folder / L"wells.well2"));
    folder.write(L"wells.well2-journal", "of the old one");
    ASSERT_TRUE(NORLEX_wellContainer::restore(archive, here, true)) << lastError();
    EXPECT_FALSE(files::isFile(folder / L"wells.well2-journal"));
    expectCopied(folder / L"wells.well2", folder / L"wells/O/F/W/LAS/GR.wpdb");
    for (const auto& path : files::listTree(folder / L""))
        EXPECT_EQ(path.find(L'~'), std::wstring::npos) << "left behind";
}

TEST_F(CareTest, aDamagedArchiveLeavesEverythingAsItWas) {
    const std::wstring archive = folder / L"a.zip";
    ASSERT_TRUE(container->backup(archive));
    container.reset();
    const std::string whole = temp_folder::read(archive);
    const std::string before = temp_folder::read(folder / L"wells.well2");
    std::string flipped = whole;
    ASSERT_GT(whole.size(), 8000U);
    flipped[2000] = static_cast<char>(flipped[2000] ^ 0x55); // of the database, which comes first
    {
        archive_writer evil(folder / L"evil.zip");
        ASSERT_TRUE(evil.add(folder / L"wells.well2", L"../container.well2") && evil.close());
        archive_writer other(folder / L"other.zip");
        ASSERT_TRUE(other.add(archive, L"container.well2") && other.close());
        archive_writer empty(folder / L"empty.zip");
        ASSERT_TRUE(empty.add(archive, L"a.zip") && empty.close());
    }
    const std::pair<const char*, std::string> cases[] = {
        {"a byte of the database", flipped},
        {"cut short", whole.substr(0, whole.size() / 2)},
        {"no archive", "PK is how an archive begins"},
        {"empty", ""},
        {"a name that leads out", temp_folder::read(folder / L"evil.zip")},
        {"the database is none", temp_folder::read(folder / L"other.zip")},
        {"another archive", temp_folder::read(folder / L"empty.zip")},
    };
    for (const auto& [where, bytes] : cases) {
        folder.write(L"bad.zip", bytes);
        EXPECT_FALSE(NORLEX_wellContainer::restore(
            folder / L"bad.zip", describe(folder / L"wells.well2"), true))
            << where;
        EXPECT_FALSE(lastError().empty()) << where;
        EXPECT_EQ(temp_folder::read(folder / L"wells.well2"), before) << where;
        EXPECT_EQ(temp_folder::read(folder / L"wells/O/F/W/LAS/GR.wpdb"), "samples") << where;
    }
    for (const auto& path : files::listTree(folder / L""))
        EXPECT_EQ(path.find(L'~'), std::wstring::npos) << "left behind";
}

TEST_F(CareTest, searchIndexesComeAndGo) {
    EXPECT_FALSE(container->hasSearchIndexes());
    EXPECT_TRUE(container->createSearchIndexes() && container->createSearchIndexes());
    EXPECT_TRUE(container->hasSearchIndexes() && container->updateStatistics());
    EXPECT_TRUE(container->dropSearchIndexes());
    EXPECT_FALSE(container->hasSearchIndexes());
}

} // namespace

#include "NORLEX_propTemplate.h"
#include "platform/files.h"
#include "store/journal.h"
#include "store/metadata.h"
#include "store/well_path.h"
#include "tests/support/container_fixture.h"
#include "tests/support/disk.h"

#include <sys/resource.h>

#include <csignal>

namespace {

// Every one of the given letters as an x.
std::wstring shape(std::wstring text, const std::wstring& letters) {
    for (wchar_t& c : text)
        c = letters.find(c) == std::wstring::npos ? c : L'x';
    return text;
}

} // namespace

TEST_F(ContainerTest, newContainerIsFilled) {
    EXPECT_EQ(cell(L"SELECT count(*) FROM base_version WHERE id = 1 AND version = 36"), L"1");
    EXPECT_EQ(shape(container->getUUID(), L"0123456789abcdef"),
              L"xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx");
    EXPECT_EQ(shape(container->getCreateDate(), L"0123456789"), L"xxxx-xx-xx xx:xx:xx");
    EXPECT_EQ(container->getCreateDate(), container->getUpdateDate());
    EXPECT_EQ(container->getCreateUser(), db()->get_user());
    EXPECT_EQ(container->getUpdateUser(), db()->get_user());
    EXPECT_EQ(container->getProjection(),
              L"+proj=longlat +towgs84=0.013,-0.092,-0.03,-0.0017,0.0036,-0.0043,0.0074 "
              L"+ellps=GSK2011 +lon_wrap=45 +no_defs");
    EXPECT_EQ(cell(L"SELECT count(*) FROM meta"), L"1"); // the projection and nothing else
    EXPECT_EQ(all(L"SELECT type FROM base_template ORDER BY bt_id"),
              L"NORLEX_dataTypeMarker,NORLEX_dataTypeInterval,NORLEX_dataTypeColumn,"
              L"NORLEX_dataTypeLog,NORLEX_dataTypeRastr,NORLEX_dataTypeBorder,"
              L"NORLEX_dataTypeConstruction,NORLEX_dataTypeWorkConstruction");
    if (!db()->is_server()) {
        EXPECT_EQ(cell(L"PRAGMA page_size"), L"8192");
    }
    EXPECT_EQ(cell(L"SELECT count(*) FROM base_version WHERE 'a' LIKE 'A'"), L"0");
    const auto entries = journal::read(*db());
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].object + L"/" + entries[0].action + L"/" + entries[0].comment, L"18/1/");
    EXPECT_EQ(entries[0].user, db()->get_user());
}

TEST_F(ContainerTest, newContainerGetsTheShippedPlotTemplates) {
    const std::wstring planshet = folder / L"wells/planshet/";
    EXPECT_EQ(disk::names(planshet), (disk::list{L"lithology_correlation.pt", L"standard_log.pt"}));
    EXPECT_EQ(disk::read(planshet + L"standard_log.pt"),
              disk::read(files::wide(WELLDB_SOURCE_DIR "/data/planshet/standard_log.pt")));
    EXPECT_EQ(all(L"SELECT name FROM planshet_template ORDER BY name"),
              L"lithology_correlation,standard_log");
}

class CreateTest : public testing::Test {
protected:
    [[nodiscard]] NORLEX_contDescription at(std::wstring_view name) const {
        return NORLEX_wellContainer::makeDescription(folder / name);
    }
    [[nodiscard]] disk::list everything() const { return disk::tree(folder.path()); }

    temp_folder folder;
};

TEST_F(CreateTest, refusalsNameThePathAndLeaveNothing) {
    disk::write(folder / L"file", "x");
    auto noType = at(L"a.well2");
    noType.type = 0;
    auto elsewhere = at(L"a.well2");
    elsewhere.connection = folder / L"b.well2";
    auto noDatabase = at(L"a.well2");
    noDatabase.type = 2;
    noDatabase.connection.clear();
    ASSERT_TRUE(files::makeFolder(folder / L"folder.well2"));
    struct {
        const char* where;
        NORLEX_contDescription description;
        const wchar_t* line; // a part of it
    } const cases[] = {
        {"no path", {}, L"path is empty"},
        {"no type", noType, L"type 0"},
        {"connection elsewhere", elsewhere, L"b.well2"},
        {"no database", noDatabase, L"Database"},
        {"a folder", at(L"folder.well2"), L"folder.well2"},
        {"upper-case extension", at(L"a.WELL2"), L"a.WELL2"},
        {"no extension", at(L"a"), L"\".well2\""},
        {"missing folder", at(L"none/a.well2"), L"there is no folder"},
        {"parent that is a file", at(L"file/a.well2"), L"there is no folder"},
    };
    const auto before = everything();
    for (const auto& c : cases) {
        EXPECT_FALSE(NORLEX_wellContainer::create(c.description)) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << ts::strconv::toUtf8(NORLEX_lastError());
        EXPECT_EQ(everything(), before) << c.where;
    }
}

// The file directory's place is taken by a file, so that step fails after the tables were made.
TEST_F(CreateTest, failureHalfWayBringsTheOldFileBack) {
    disk::write(folder / L"a", "not a folder");
    disk::write(folder / L"a.well2", "some text");
    const auto before = everything();
    EXPECT_FALSE(NORLEX_wellContainer::create(at(L"a.well2")));
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(disk::read(folder / L"a.well2"), "some text");
}

TEST_F(CreateTest, fullDiskLeavesNothing) {
    ASSERT_TRUE(NORLEX_wellContainer::create(at(L"a.well2")));
    const auto whole = files::size(folder / L"a.well2").value_or(0);
    ASSERT_TRUE(files::removeTree(folder / L"a") && files::removeFile(folder / L"a.well2"));
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, SIG_IGN);
    // No byte, a part of the tables, all but the last page.
    for (const rlim_t limit : {rlim_t{0}, rlim_t{60} << 10, rlim_t{whole - 1}}) {
        const rlimit small{limit, old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const bool done = NORLEX_wellContainer::create(at(L"a.well2"));
        const std::wstring line = NORLEX_lastError();
        setrlimit(RLIMIT_FSIZE, &old);
        EXPECT_FALSE(done) << limit;
        EXPECT_NE(line.find(L"a.well2"), std::wstring::npos) << ts::strconv::toUtf8(line);
        EXPECT_EQ(everything(), disk::list{}) << limit;
    }
    std::signal(SIGXFSZ, SIG_DFL);
}

TEST_F(CreateTest, anyFileMayBeReplaced) {
    for (const std::string content : {"", "some text", "SQLite format 3\0 and no more"}) {
        disk::write(folder / L"a.well2", content);
        disk::write(folder / L"a.well2-journal", "left by a killed program");
        EXPECT_TRUE(NORLEX_wellContainer::create(at(L"a.well2"))) << content;
        EXPECT_TRUE(NORLEX_wellContainer(at(L"a.well2")).isOK()) << content;
        EXPECT_EQ(disk::names(folder.path()), disk::list{L"a.well2"}) << content;
    }
}

// Sample files of the old wells go: a new well of the same name must not find them. What the
// database did not put there stays, as do the journal and the layouts that a user changed.
TEST_F(CreateTest, replacedContainerTakesItsSamplesWithIt) {
    ASSERT_TRUE(NORLEX_wellContainer::create(at(L"a.well2")));
    std::wstring well;
    {
        NORLEX_wellContainer old(at(L"a.well2"));
        ASSERT_TRUE(old.isOK());
        ASSERT_TRUE(old.getBaseLink()->exec(
            L"INSERT INTO well_base (work_object, field, name) VALUES ('O', 'F', 'W')"));
        well = NORLEX_getWellPath(old.getBaseLink(), 1);
    }
    ASSERT_TRUE(files::makeFolder(well + L"G"));
    ASSERT_TRUE(files::makeFolder(folder / L"a/.pending/1"));
    disk::write(well + L"G/GR.wpdb", "samples");
    disk::write(well + L"report.txt", "a user's");
    disk::write(folder / L"a/other.wpdb", "of no well");
    disk::write(folder / L"a/planshet/standard_log.pt", "changed");
    ASSERT_TRUE(NORLEX_wellContainer::create(at(L"a.well2")));
    EXPECT_EQ(everything(),
              (disk::list{L"a",
                          L"a.well2",
                          L"a/O",
                          L"a/O/F",
                          L"a/O/F/W",
                          L"a/O/F/W/report.txt",
                          L"a/journal.db",
                          L"a/other.wpdb",
                          L"a/planshet",
                          L"a/planshet/lithology_correlation.pt",
                          L"a/planshet/standard_log.pt"}));
    EXPECT_EQ(disk::read(folder / L"a/planshet/standard_log.pt"), "changed");
    const NORLEX_wellContainer made(at(L"a.well2"));
    EXPECT_EQ(made.getWellCount(), 0);
    EXPECT_EQ(journal::read(*made.getBaseLink()).size(), 2U);
}

// Replacing a file that is no container must not touch a folder that merely has its name.
TEST_F(CreateTest, foreignFolderStaysWhole) {
    disk::write(folder / L"a.well2", "some text");
    ASSERT_TRUE(files::makeFolder(folder / L"a/O/F/W"));
    ASSERT_TRUE(files::makeFolder(folder / L"a/.pending/1"));
    disk::write(folder / L"a/O/F/W/x.wpdb", "samples of something else");
    ASSERT_TRUE(NORLEX_wellContainer::create(at(L"a.well2")));
    EXPECT_TRUE(files::isFile(folder / L"a/O/F/W/x.wpdb"));
    EXPECT_TRUE(files::isFolder(folder / L"a/.pending/1"));
}

TEST_F(CreateTest, containerInUseStaysAsItWas) {
    ASSERT_TRUE(NORLEX_wellContainer::create(at(L"a.well2")));
    const std::string bytes = disk::read(folder / L"a.well2");
    {
        const NORLEX_wellContainer open(at(L"a.well2"));
        auto otherSpelling = at(L"./a.well2");
        for (const auto& description : {at(L"a.well2"), otherSpelling})
            EXPECT_FALSE(NORLEX_wellContainer::create(description));
    }
    odbc_database writer; // as another program would hold it: unknown to the containers here
    ASSERT_TRUE(writer.connect(ts::strconv::toUtf8(folder / L"a.well2")));
    ASSERT_TRUE(writer.begin_transaction());
    EXPECT_FALSE(NORLEX_wellContainer::create(at(L"a.well2")));
    EXPECT_NE(NORLEX_lastError().find(L"in use"), std::wstring::npos);
    writer.rollback();
    {
        const auto reader = writer.query(L"SELECT name FROM base_template");
        ASSERT_TRUE(reader && reader->next());
        EXPECT_FALSE(NORLEX_wellContainer::create(at(L"a.well2")));
    }
    EXPECT_EQ(disk::read(folder / L"a.well2"), bytes);
    EXPECT_TRUE(NORLEX_wellContainer::create(at(L"a.well2"))); // once nobody works in it
}

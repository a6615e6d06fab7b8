#include "platform/files.h"
#include "platform/transaction.h"
#include "platform/transaction_files.h"
#include "tests/support/container_fixture.h"
#include "tests/support/disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

NORLEX_contDescription local(const std::wstring& path) {
    return NORLEX_wellContainer::makeDescription(path);
}

} // namespace

class OpenTest : public ContainerTest {
protected:
    void SetUp() override {
        SKIP_ON_SERVER();
        ContainerTest::SetUp();
        whole = disk::read(folder / L"wells.well2");
    }
    // A second container, with a file directory of its own.
    void makeOther(const wchar_t* name) {
        ASSERT_TRUE(NORLEX_wellContainer::create(local(folder / name))) << lastError();
    }
    // Changes a container through a plain connection.
    void change(const std::wstring& path, const wchar_t* statement) {
        odbc_database other;
        ASSERT_TRUE(other.connect(ts::strconv::toUtf8(path)) && other.exec(statement));
    }

    std::string whole;
};

// What is no current container is refused with a line that names it, by the constructor and by
// isContCanOpen alike, and stays as it was.
TEST_F(OpenTest, refusesWhatIsNoContainerAndLeavesIt) {
    const std::string start = whole.substr(0, 60);
    const std::string half = whole.substr(0, 8192 * 5);
    const std::string damaged = whole.substr(0, 100) + std::string(whole.size() - 100, '\xff');
    const std::string text(9000, 'x');
    struct {
        const char* where;
        const wchar_t* name;
        std::string content;
        const wchar_t* line; // a part of it
    } const cases[] = {
        {"zero bytes", L"zero.well2", "", L"no well database"},
        {"a text", L"text.well2", text, L"not a database"},
        {"the start of one", L"cut.well2", start, L"malformed"},
        {"half of one", L"half.well2", half, L"malformed"},
        {"a damaged one", L"bad.well2", damaged, L"malformed"},
        {"upper-case extension", L"wells.WELL2", whole, L"\".well2\""},
        {"another extension", L"wells.db", whole, L"\".well2\""},
        {"extension and no more", L"well2", whole, L"\".well2\""},
        {"a longer extension", L"w.well2x", whole, L"\".well2\""},
    };
    for (const auto& c : cases) {
        const std::wstring path = folder / c.name;
        disk::write(path, c.content);
        const auto before = disk::tree(folder.path());
        EXPECT_FALSE(NORLEX_wellContainer::isContCanOpen(local(path))) << c.where;
        const std::wstring line = NORLEX_lastError();
        EXPECT_NE(line.find(path), std::wstring::npos) << c.where << ": " << lastError();
        EXPECT_NE(line.find(c.line), std::wstring::npos) << c.where << ": " << lastError();
        const NORLEX_wellContainer opened(local(path));
        EXPECT_FALSE(opened.isOK()) << c.where;
        EXPECT_EQ(NORLEX_lastError(), line) << c.where;
        EXPECT_EQ(opened.getBaseLink(), nullptr) << c.where;
        EXPECT_EQ(opened.getContDescription(), NORLEX_contDescription{}) << c.where;
        EXPECT_EQ(opened.getVersionStatus(), NORLEX_versionStatus::unreadable) << c.where;
        EXPECT_EQ(disk::read(path), c.content) << c.where;
        EXPECT_EQ(disk::tree(folder.path()), before) << c.where;
    }
}

TEST_F(OpenTest, missingFileIsNotMade) {
    const auto before = disk::tree(folder.path());
    for (const std::wstring& path : {folder / L"none.well2", folder.path(), std::wstring()}) {
        EXPECT_FALSE(NORLEX_wellContainer::isContCanOpen(local(path)));
        EXPECT_FALSE(NORLEX_wellContainer(local(path)).isOK());
    }
    EXPECT_EQ(disk::tree(folder.path()), before);
}

TEST_F(OpenTest, otherVersionsAreRefusedByTheirNumber) {
    const wchar_t* const older = L"it is of version 35, version 36 is needed; its upgrade was not "
                                 L"agreed to"; // without a host to ask, the answer is no
    const wchar_t* const newer = L"it is of version 37, version 36 is needed; a newer release";
    struct {
        const char* where;
        const wchar_t* statement;
        const wchar_t* line; // a part of it
    } const cases[] = {
        {"older", L"UPDATE base_version SET version = 35", older},
        {"newer", L"UPDATE base_version SET version = 37", newer},
        {"oldest", L"UPDATE base_version SET version = 4", L"of version 4,"},
        {"zero", L"UPDATE base_version SET version = 0", L"no well database"},
        {"no row", L"DELETE FROM base_version", L"no well database"},
        {"no table", L"DROP TABLE base_version", L"no such table: base_version"},
    };
    for (const auto& c : cases) {
        disk::write(folder / L"copy.well2", whole);
        change(folder / L"copy.well2", c.statement);
        const std::string bytes = disk::read(folder / L"copy.well2");
        EXPECT_FALSE(NORLEX_wellContainer(local(folder / L"copy.well2")).isOK()) << c.where;
        EXPECT_NE(NORLEX_lastError().find(c.line), std::wstring::npos)
            << c.where << ": " << lastError();
        EXPECT_EQ(disk::read(folder / L"copy.well2"), bytes) << c.where;
    }
}

TEST_F(OpenTest, lastVersionRowDecides) {
    change(folder / L"wells.well2", L"INSERT INTO base_version (id, version) VALUES (2, 35)");
    EXPECT_EQ(container->getVersionNumber(), 35);
    EXPECT_EQ(container->getVersionStatus(), NORLEX_versionStatus::needsUpgrade);
    EXPECT_FALSE(container->updateVersion());
}

TEST_F(OpenTest, readOnlyContainerOpensForReading) {
    container.reset();
    chmod(files::native(folder.path()).c_str(), 0555);
    chmod(files::native(folder / L"wells.well2").c_str(), 0444);
    constexpr uid_t nobody = 65534; // the superuser may write everything
    const bool isDropped = geteuid() == 0 && seteuid(nobody) == 0;
    reopen();
    EXPECT_EQ(container->getTemplateCount(), 8);
    EXPECT_FALSE(container->setProjection(L"+proj=utm"));
    EXPECT_FALSE(NORLEX_wellContainer::create(local(folder / L"new.well2")));
    EXPECT_NE(NORLEX_lastError().find(L"new.well2"), std::wstring::npos);
    EXPECT_FALSE(files::isFile(folder / L"new.well2"));
    ASSERT_TRUE(!isDropped || seteuid(0) == 0);
    chmod(files::native(folder.path()).c_str(), 0755);
}

// A program that is killed in a transaction leaves its files half changed; opening puts that right.
// Something that is no container decides nothing about them.
TEST_F(OpenTest, openingUndoesWhatAKilledProgramLeft) {
    const std::wstring path = folder / L"wells/O/F/W/GR.wpdb";
    const auto put = [](const char* text) {
        return [text](std::FILE* file) { return files::put(file, text); };
    };
    {
        transaction change(db());
        ASSERT_TRUE(db()->files().write(path, put("old")) && change.commit());
    }
    container.reset();
    const pid_t child = fork();
    if (child == 0) {
        NORLEX_wellContainer other(local(folder / L"wells.well2"));
        odbc_database* link = other.getBaseLink();
        if (link != nullptr && link->begin_transaction())
            static_cast<void>(link->files().write(path, put("new")));
        _exit(0);
    }
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    EXPECT_EQ(disk::read(path), "new");
    disk::write(folder / L"kept", whole);
    disk::write(folder / L"wells.well2", "");
    EXPECT_FALSE(NORLEX_wellContainer(local(folder / L"wells.well2")).isOK());
    EXPECT_EQ(disk::read(path), "new");
    disk::write(folder / L"wells.well2", whole);
    reopen();
    EXPECT_EQ(disk::read(path), "old");
}

TEST_F(OpenTest, movesToAnotherFile) {
    makeOther(L"other.well2");
    change(folder / L"other.well2", L"UPDATE base_version SET UUID = 'other'");
    disk::write(folder / L"text.well2", "some text");
    odbc_database* const link = db();
    ASSERT_TRUE(container->beginTransaction());
    EXPECT_FALSE(container->updateConnectionPath(folder / L"other.well2"));
    ASSERT_TRUE(container->endTransaction());
    // A path that is refused leaves the container as it was.
    for (const std::wstring& path : {folder / L"none.well2", folder / L"kept", std::wstring()})
        EXPECT_FALSE(container->updateConnectionPath(path));
    EXPECT_EQ(container->getConnectionPath(), folder / L"wells.well2");
    EXPECT_EQ(container->getTemplateCount(), 8);

    ASSERT_TRUE(container->updateConnectionPath(folder / L"other.well2")) << lastError();
    EXPECT_EQ(container->getUUID(), L"other");
    EXPECT_EQ(db(), link); // objects made from the container borrow it
    EXPECT_EQ(link->get_file_container_path(), folder / L"other\\");
    EXPECT_EQ(cell(L"SELECT 'a' LIKE 'A'"), L"0");
    EXPECT_TRUE(NORLEX_wellContainer::create(local(folder / L"wells.well2"))); // no longer in use
    EXPECT_FALSE(NORLEX_wellContainer::create(local(folder / L"other.well2")));

    EXPECT_FALSE(container->updateConnectionPath(folder / L"text.well2"));
    EXPECT_FALSE(container->isOK());
    EXPECT_EQ(container->getConnectionPath(), L"");
    EXPECT_FALSE(container->updateConnectionPath(folder / L"other.well2"));
}

// Closing any descriptor of a file drops a process's locks on it, the engine's too. A child asks
// the system itself: the engine would answer from the state that it shares with its parent.
TEST_F(OpenTest, describingAnOpenContainerKeepsItsLocks) {
    ASSERT_TRUE(container->beginTransaction());
    EXPECT_EQ(local(folder / L"wells.well2").type, 1);
    const auto path = files::native(folder / L"wells.well2");
    const pid_t child = fork();
    if (child == 0) {
        const int file = ::open(path.c_str(), O_RDWR);
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET; // from 0 on, the whole file
        _exit(file >= 0 && ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(container->endTransaction());
}

TEST_F(OpenTest, closedContainerRefusesEverything) {
    NORLEX_wellContainer closed(NORLEX_contDescription{});
    EXPECT_FALSE(closed.updateVersion());
    EXPECT_FALSE(closed.setProjection(L"x"));
    EXPECT_FALSE(closed.updateEditTimeContainer());
    EXPECT_FALSE(closed.beginBatchLoad());
    EXPECT_FALSE(closed.beginTransaction());
    closed.rollbackTransaction();
    EXPECT_EQ(closed.getUUID() + closed.getProjection() + closed.getCreateUser(), L"");
    EXPECT_EQ(closed.getWellCount() + closed.getPropertyCount() + closed.getTemplateCount(), 0);
}

// Stamps go to the named rows only; the list of keys must not be able to say anything else.
TEST_F(OpenTest, stampsWhatWasEdited) {
    for (const wchar_t* statement :
         {L"INSERT INTO well_base (name) VALUES ('1'), ('2'), ('3')",
          L"INSERT INTO property (w_id, bt_id, name, p_group) VALUES (1, 4, 'OBrien', 'g'), "
          L"(1, 4, 'OBrien', ''), (2, 4, 'OBrien', 'g'), (3, 4, 'OBrien', 'g')"})
        ASSERT_TRUE(db()->exec(statement));
    ASSERT_TRUE(db()->exec(L"UPDATE base_version SET update_user = 'x', update_date = '1'"));
    const std::wstring wells =
        L"SELECT group_concat(w_id) FROM well_base WHERE update_user IS NOT NULL";
    const std::wstring properties =
        L"SELECT group_concat(pr_id) FROM property WHERE update_date LIKE '20%'";
    EXPECT_TRUE(container->updateEditTimeContainer());
    EXPECT_EQ(container->getUpdateUser(), db()->get_user());
    EXPECT_GT(container->getUpdateDate(), L"2020");
    EXPECT_TRUE(container->updateEditTimeWell(L"1,3"));
    EXPECT_EQ(cell(wells), L"1,3");
    EXPECT_TRUE(container->updateEditTimeProp(L"1, 2", L"O'Brien", L"g"));
    EXPECT_EQ(cell(properties), L"1,3");
    EXPECT_TRUE(container->updateEditTimeWell(L""));
    EXPECT_FALSE(container->updateEditTimeWell(L"1) OR (1=1"));
    EXPECT_FALSE(container->updateEditTimeProp(L"SELECT 1", L"OBrien", L"g"));
    EXPECT_EQ(cell(wells), L"1,3");
}

TEST_F(OpenTest, transactionsOfTheContainerNest) {
    ASSERT_TRUE(container->beginTransaction());
    ASSERT_TRUE(container->setProjection(L"kept"));
    ASSERT_TRUE(container->beginTransaction());
    ASSERT_TRUE(container->setProjection(L"dropped"));
    container->rollbackTransaction();
    ASSERT_TRUE(container->endTransaction());
    reopen();
    EXPECT_EQ(container->getProjection(), L"kept");
}

// Places that cannot be written, and files that are gone: what can be read is read, the rest is
// refused with a line that names the place, and nothing is lost.
#include "tests/faults/environment_fixture.h"
#include "tests/support/disk.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

const NORLEX_propDescription other{L"DT", L"LAS"};

// Gives up the superuser's right to write everything, for the length of a scope.
class unprivileged {
public:
    unprivileged() : m_isDropped(geteuid() == 0 && seteuid(nobody) == 0) {}
    ~unprivileged() { EXPECT_TRUE(!m_isDropped || seteuid(0) == 0); }
    unprivileged(const unprivileged&) = delete;
    unprivileged& operator=(const unprivileged&) = delete;
    [[nodiscard]] static bool isSo() { return geteuid() != 0; }

private:
    static constexpr uid_t nobody = 65534;
    bool m_isDropped;
};

void allow(const std::wstring& path, mode_t mode) {
    ASSERT_EQ(chmod(files::native(path).c_str(), mode), 0) << ts::strconv::toUtf8(path);
}

} // namespace

// As for a container on a medium that nobody writes, and one whose folder somebody else owns.
TEST_F(EnvironmentTest, whatMayNotBeWrittenIsReadAndRefusesTheRest) {
    SKIP_ON_SERVER();
    const struct {
        const char* where;
        mode_t folder, file;
    } cases[] = {
        {"a folder that is read only", 0555, 0444},
        {"the file alone", 0777, 0444},
        {"the folder alone", 0555, 0666},
    };
    const temp_folder elsewhere;
    allow(elsewhere.path(), 0777);
    const auto before = contentSnapshot::take(*container);
    container.reset();
    const auto files = disk::tree(folder.path());
    for (const auto& c : cases) {
        SCOPED_TRACE(c.where);
        allow(folder.path(), c.folder);
        allow(folder / L"wells.well2", c.file);
        {
            const unprivileged user;
            if (!unprivileged::isSo())
                GTEST_SKIP() << "NOT CHECKED: the superuser writes everywhere, and cannot be left";
            reopen();
            EXPECT_EQ(samplesOf(gr), 3U);
            EXPECT_EQ(findings(), L"");
            const struct {
                const char* where;
                bool done;
                std::wstring line;
            } writes[] = {
                {"a setting", container->setProjection(L"+proj=utm"), NORLEX_lastError()},
                {"a well", NORLEX_well::create(db(), {L"O", L"F", L"W-2", 0}), NORLEX_lastError()},
                {"a new log", makeLog(other), NORLEX_lastError()},
                {"the samples of a log", rewrite({{1, 1, 1}}), NORLEX_lastError()},
                {"a removal", NORLEX_well::remove(db(), names), NORLEX_lastError()},
            };
            for (const auto& write : writes) {
                EXPECT_FALSE(write.done) << write.where;
                EXPECT_NE(write.line.find(folder.path()), std::wstring::npos)
                    << write.where << ": " << ts::strconv::toUtf8(write.line);
            }
            const std::wstring archive = elsewhere / L"a.zip";
            EXPECT_TRUE(container->backup(archive)) << lastError();
            EXPECT_TRUE(
                container->copyTo(NORLEX_wellContainer::makeDescription(elsewhere / L"copy.well2")))
                << lastError();
            EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
            container.reset();
            for (const auto& path : disk::names(elsewhere.path()))
                EXPECT_TRUE(files::removeFile(elsewhere / path));
            EXPECT_TRUE(files::removeTree(elsewhere / L"copy"));
        }
        EXPECT_EQ(disk::tree(folder.path()), files);
    }
    allow(folder.path(), 0755);
}

// A program that was killed between two transactions leaves a journal that tells of nothing to
// undo.
TEST_F(EnvironmentTest, anEndedJournalKeepsNobodyFromReading) {
    SKIP_ON_SERVER();
    container.reset();
    for (const char* journal : {"T\tgone-1\nE\n", ""}) {
        const std::wstring path = folder.write(L"wells/.pending/gone.changes", journal);
        allow(folder.path(), 0555);
        allow(folder / L"wells.well2", 0444);
        {
            const unprivileged user;
            reopen();
            EXPECT_EQ(samplesOf(gr), 3U);
            container.reset();
        }
        allow(folder.path(), 0755);
        reopen();
        container.reset();
        EXPECT_FALSE(files::isFolder(folder / L"wells/.pending"));
    }
}

// What is not read is not in a backup or in a copy: neither may look whole.
TEST_F(EnvironmentTest, aFolderThatMayNotBeReadIsNotLeftOutOfABackup) {
    SKIP_ON_SERVER();
    const temp_folder elsewhere;
    container.reset();
    allow(elsewhere.path(), 0777);
    allow(folder.path(), 0777);
    allow(folder / L"wells.well2", 0666);
    allow(folder / L"wells/O/F", 0000);
    {
        const unprivileged user;
        if (!unprivileged::isSo())
            GTEST_SKIP() << "NOT CHECKED: the superuser reads everything, and cannot be left";
        reopen();
        EXPECT_FALSE(container->backup(elsewhere / L"a.zip"));
        expectLineNames(L"wells", "backup");
        EXPECT_FALSE(
            container->copyTo(NORLEX_wellContainer::makeDescription(elsewhere / L"copy.well2")));
        expectLineNames(L"wells", "copy");
        std::vector<NORLEX_checkFinding> found;
        EXPECT_FALSE(container->check(found)) << "nobody knows which samples are there";
        expectLineNames(L"wells", "check");
        container.reset();
    }
    EXPECT_EQ(disk::tree(elsewhere.path()), disk::list{});
    allow(folder / L"wells/O/F", 0755);
}

// The rows stay, whatever becomes of the files; a write makes the folders that it needs.
TEST_F(EnvironmentTest, aFileDirectoryThatIsGoneIsMadeAgain) {
    const auto isOpenMeanwhile = {false, true};
    for (const bool stays : isOpenMeanwhile) {
        SCOPED_TRACE(stays ? "while the container is open" : "while it is closed");
        ASSERT_TRUE(rewrite({{1, 1, 1}, {2, 2, 2}}));
        if (!stays)
            container.reset();
        ASSERT_TRUE(files::removeTree(folder / L"wells"));
        if (!stays)
            reopen();
        std::vector<NORLEX_logSample> samples;
        EXPECT_FALSE(log(gr)->getSamples(samples));
        expectLineNames(samplePath(gr), "reading");
        EXPECT_EQ(findings(), L"log without a sample file × 1\n");
        std::vector<NORLEX_checkFinding> removed;
        EXPECT_TRUE(container->repair(folder / L"before repair.zip", removed)) << lastError();
        EXPECT_TRUE(removed.empty());
        EXPECT_TRUE(files::removeFile(folder / L"before repair.zip"));
        EXPECT_EQ(well().getPropertyCount(), 1) << "its attributes are still worth something";

        ASSERT_TRUE(makeLog(other)) << lastError();
        ASSERT_TRUE(rewrite({{1, 1, 1}, {2, 2, 2}, {3, 3, 3}})) << lastError();
        ASSERT_TRUE(rewrite({{1, 1, 1}, {2, 2, 2}})) << lastError();
        EXPECT_EQ(samplesOf(gr), 2U);
        EXPECT_EQ(samplesOf(other), 3U);
        EXPECT_EQ(findings(), L"");
        ASSERT_TRUE(log(other)->remove());
        reopen();
        EXPECT_EQ(findings(), L"");
    }
}

TEST_F(EnvironmentTest, aFileInThePlaceOfTheFileDirectoryCostsTheSamplesOnly) {
    container.reset();
    ASSERT_TRUE(files::move(folder / L"wells", folder / L"kept"));
    folder.write(L"wells", "not a folder");
    reopen();
    std::vector<NORLEX_logSample> samples;
    EXPECT_FALSE(log(gr)->getSamples(samples));
    expectLineNames(L"wells", "reading");
    EXPECT_FALSE(rewrite({{1, 1, 1}}));
    expectLineNames(L"wells", "rewriting");
    EXPECT_FALSE(makeLog(other));
    expectLineNames(L"wells", "a new log");
    EXPECT_EQ(findings(), L"log without a sample file × 1\n");
    EXPECT_TRUE(well().createProperty(NORLEX_dataTypeMarker, {L"M", L""})) << "rows only";
    EXPECT_TRUE(NORLEX_wellProperty::removeSilent(db(), wellId(), {L"M", L""})) << lastError();
    EXPECT_EQ(temp_folder::read(folder / L"wells"), "not a folder");
    container.reset();
    ASSERT_TRUE(files::removeFile(folder / L"wells")
                && files::move(folder / L"kept", folder / L"wells"));
    reopen();
    EXPECT_EQ(samplesOf(gr), 3U);
    EXPECT_EQ(findings(), L"");
}

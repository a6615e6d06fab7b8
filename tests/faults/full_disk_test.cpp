// A disk without room leaves everything as it was, and nothing half-made.
#include "tests/faults/environment_fixture.h"
#include "tests/store/upgrade_fixture.h"
#include "tests/support/disk.h"
#include "tests/support/size_limit.h"

#include <random>

namespace {

using FullDiskTest = EnvironmentTest;

// Values that an archive cannot make shorter.
std::vector<NORLEX_logSample> noise(std::size_t count) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> number(0, 1);
    std::vector<NORLEX_logSample> samples(count);
    for (auto& sample : samples)
        sample = {number(random), number(random), number(random)};
    return samples;
}

} // namespace

TEST_F(FullDiskTest, aFullDiskLeavesALogAsItWas) {
    SKIP_ON_SERVER();
    const auto before = contentSnapshot::take(*container);
    const std::size_t room = files::size(folder / L"wells.well2").value_or(0) + 100'000;
    {
        const size_limit limit(room);
        ASSERT_TRUE(limit.isSet());
        EXPECT_FALSE(rewrite(noise(room / 20)));
        expectLineNames(samplePath(gr), "rewriting");
    }
    EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    EXPECT_TRUE(rewrite(noise(room / 20))) << "with room again: " << lastError();
    container.reset();
    EXPECT_FALSE(files::isFolder(folder / L"wells/.pending"));
}

// The copy of the database fits or not; the archive does not.
TEST_F(FullDiskTest, aFullDiskLeavesNoPartOfABackup) {
    SKIP_ON_SERVER();
    const std::size_t size = files::size(folder / L"wells.well2").value_or(0) + 100'000;
    ASSERT_TRUE(rewrite(noise(size / 10)));
    ASSERT_TRUE(container->backup(folder / L"whole.zip")) << lastError();
    const auto before = contentSnapshot::take(*container);
    const auto files = disk::tree(folder.path());
    for (const std::size_t room : {std::size_t{0}, size / 2, size}) {
        SCOPED_TRACE(room);
        {
            const size_limit limit(room);
            EXPECT_FALSE(container->backup(folder / L"a.zip"));
            expectLineNames(L"a.zip", "backup");
            std::vector<NORLEX_checkFinding> removed;
            EXPECT_FALSE(container->repair(folder / L"b.zip", removed));
            EXPECT_FALSE(NORLEX_wellContainer::restore(
                folder / L"whole.zip",
                NORLEX_wellContainer::makeDescription(folder / L"restored.well2"),
                false));
            expectLineNames(L"restored.well2", "restoring");
            EXPECT_FALSE(
                container->copyTo(NORLEX_wellContainer::makeDescription(folder / L"copy.well2")));
            expectLineNames(L"copy", "copying");
        }
        EXPECT_EQ(disk::tree(folder.path()), files);
        EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    }
    EXPECT_TRUE(container->backup(folder / L"a.zip")) << "with room again: " << lastError();
}

// No room for the copy, and none for what the steps add.
TEST_F(UpgradeTest, aFullDiskLeavesTheOldVersion) {
    SKIP_ON_SERVER();
    make(2);
    const auto before = disk::tree(folder / L"wells");
    for (const std::size_t room : {made.size() / 2, made.size()}) {
        SCOPED_TRACE(room);
        {
            const size_limit limit(room);
            EXPECT_FALSE(open());
        }
        EXPECT_NE(NORLEX_lastError().find(path), std::wstring::npos) << lastError();
        EXPECT_NE(NORLEX_lastError().find(L"was undone"), std::wstring::npos) << lastError();
        container.reset();
        EXPECT_EQ(disk::read(path), made);
        EXPECT_EQ(disk::tree(folder / L"wells"), before);
        EXPECT_FALSE(files::isFile(path + L".v2.bak.part"));
    }
    EXPECT_TRUE(open()) << "with room again: " << lastError();
}

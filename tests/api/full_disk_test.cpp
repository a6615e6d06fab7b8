// An import that finds no room leaves the container as it was.
#include "../support/size_limit.h"
#include "api_fixture.h"

#include <sys/mount.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

using namespace apiTest;

namespace {

// A file system in memory of a few megabytes.
class small_disk {
public:
    explicit small_disk(const fs::path& at) : m_at(at) {
        m_mounted = mount("tmpfs", at.c_str(), "tmpfs", 0, "size=3m") == 0;
        m_error = m_mounted ? 0 : errno;
    }
    ~small_disk() {
        if (m_mounted)
            umount(m_at.c_str());
    }
    small_disk(const small_disk&) = delete;
    small_disk& operator=(const small_disk&) = delete;
    [[nodiscard]] bool isMounted() const { return m_mounted; }
    [[nodiscard]] const char* why() const { return std::strerror(m_error); }

private:
    fs::path m_at;
    bool m_mounted = false;
    int m_error = 0;
};

void expectWells(const NORLEX_wellContainer& container, std::size_t wells, std::size_t rows) {
    std::vector<NORLEX_wellDescription> found;
    NORLEX_well::getWellList(container.getBaseLink(), found);
    EXPECT_EQ(found.size(), wells);
    EXPECT_EQ(static_cast<std::size_t>(container.getPropertyCount()), wells * curvesOfFile);
    for (const auto& well : found)
        expectWhole(container.getBaseLink(), well, rows);
    const stored files = filesOf(fileFolder(container));
    EXPECT_EQ(files.samples, wells * curvesOfFile);
    EXPECT_EQ(files.emptyFolders, 0U);
    EXPECT_EQ(files.unfinished, 0U);
}

} // namespace

// 60,000 samples of 24 bytes take 1.44 MB a log, so that the sample files meet the limit of 1 MB;
// a limit at the size of the database lets the logs in but not the rows.
TEST(FullDisk, limitsOnFilesUndoTheImport) {
    const temporary_folder folder;
    const fs::path path = folder.path() / "wells.well2";
    auto container = newContainer(path);
    writeLas(folder.path() / "large.las", "large", 60'000);
    writeLas(folder.path() / "small.las", "small", 10);
    struct {
        const char* where;
        const char* input;
        std::uintmax_t limit;
    } const cases[] = {
        {"no room for samples", "large.las", 1'000'000},
        {"no room for rows", "small.las", fs::file_size(path)},
    };
    for (const auto& c : cases) {
        NORLEX_lasImport import(container->getBaseLink(), {});
        NORLEX_lasImportResult result;
        {
            const size_limit limit(c.limit);
            ASSERT_TRUE(limit.isSet());
            // enough of them that the database has to grow
            for (int i = 0; i < 300 && (i == 0 || result.ok); ++i) {
                NORLEX_lasImportOptions options;
                options.workObject = wide(std::to_string(i));
                result = NORLEX_lasImport(container->getBaseLink(), options)
                             .importFile(wide((folder.path() / c.input).string()));
            }
        }
        EXPECT_FALSE(result.ok) << c.where;
        EXPECT_FALSE(result.error.empty()) << c.where;
        std::vector<NORLEX_wellDescription> wells;
        NORLEX_well::getWellList(container->getBaseLink(), wells);
        expectWells(*container, wells.size(), 10);
        for (const auto& well : wells)
            EXPECT_TRUE(NORLEX_well::remove(container->getBaseLink(), well)) << c.where;
    }
    const auto result = NORLEX_lasImport(container->getBaseLink(), {})
                            .importFile(wide((folder.path() / "small.las").string()));
    EXPECT_TRUE(result.ok) << "with room again: " << narrow(result.error);
    container.reset();
    container = openContainer(path);
    expectWells(*container, 1, 10);
}

TEST(FullDisk, fullFileSystemUndoesTheImport) {
    const temporary_folder folder;
    const fs::path disk = folder.path() / "disk";
    ASSERT_EQ(mkdir(disk.c_str(), 0700), 0);
    const small_disk mounted(disk);
    if (!mounted.isMounted())
        GTEST_SKIP() << "NOT CHECKED: no file system of its own could be mounted: "
                     << mounted.why();
    const auto container = newContainer(disk / "wells.well2");
    constexpr std::size_t rows = 3000; // 216 KB a file
    writeLas(folder.path() / "in.las", "W", rows);
    std::size_t done = 0;
    NORLEX_lasImportResult result;
    do {
        NORLEX_lasImportOptions options;
        options.workObject = wide("run " + std::to_string(done));
        result = NORLEX_lasImport(container->getBaseLink(), options)
                     .importFile(wide((folder.path() / "in.las").string()));
        done += result.ok ? 1 : 0;
    } while (result.ok && done < 100);
    EXPECT_FALSE(result.ok);
    EXPECT_FALSE(result.error.empty());
    EXPECT_GT(done, 2U);
    expectWells(*container, done, rows);
}

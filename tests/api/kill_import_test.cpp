// A program that is killed while it imports leaves each file in the container wholly or not at all.
#include "api_fixture.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <set>
#include <thread>

using namespace apiTest;

namespace {

constexpr int kills = 20;
constexpr std::size_t inputs = 25;
constexpr std::size_t rows = 400;
constexpr int statusPipe = 3; // where the child tells of each import that has returned
constexpr const char* folderVariable = "WELLDB_KILL_TEST_FOLDER";
constexpr const char* runVariable = "WELLDB_KILL_TEST_RUN";

std::string inputName(std::size_t number) {
    return "in" + std::to_string(number) + ".las";
}

[[noreturn]] void becomeImporter(const fs::path& folder, int run, int pipeEnd) {
    if (pipeEnd != statusPipe) {
        dup2(pipeEnd, statusPipe);
        close(pipeEnd);
    }
    setenv(folderVariable, folder.c_str(), 1);
    setenv(runVariable, std::to_string(run).c_str(), 1);
    unsetenv("GTEST_OUTPUT");
    freopen("/dev/null", "w", stdout);
    execl("/proc/self/exe",
          "test_api",
          "--gtest_filter=KillImport.DISABLED_importer",
          "--gtest_also_run_disabled_tests",
          nullptr);
    _exit(127);
}

// Starts an importer, lets `before` of its imports return, kills it `delay` later, and answers how
// many had returned in all.
std::size_t
killImporter(const fs::path& folder, int run, std::size_t before, std::chrono::microseconds delay) {
    int ends[2] = {-1, -1};
    if (pipe(ends) != 0)
        return 0;
    std::fflush(nullptr); // the child would write what is buffered a second time
    const pid_t child = fork();
    if (child == 0)
        becomeImporter(folder, run, ends[1]);
    close(ends[1]);
    std::size_t returned = 0;
    const auto next = [&](char expected) {
        char byte = 0;
        const bool got = read(ends[0], &byte, 1) == 1;
        EXPECT_TRUE(!got || byte == expected) << "an import failed";
        return got;
    };
    EXPECT_TRUE(next('o')) << "the importer does not start";
    while (returned < before && next('+'))
        ++returned;
    std::this_thread::sleep_for(delay);
    kill(child, SIGKILL);
    while (next('+'))
        ++returned;
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the importer ended by itself";
    return returned;
}

// One import takes this long here; the kills are spread over it.
std::chrono::microseconds timeOfImport(const fs::path& folder) {
    const auto container = openContainer(folder / "wells.well2");
    const auto begin = std::chrono::steady_clock::now();
    const auto result = NORLEX_lasImport(container->getBaseLink(), {})
                            .importFile(wide((folder / inputName(0)).string()));
    EXPECT_TRUE(result.ok) << narrow(result.error);
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now()
                                                                 - begin);
}

} // namespace

// Not a test: what the killed program runs.
TEST(KillImport, DISABLED_importer) {
    const char* const folder = std::getenv(folderVariable);
    const char* const run = std::getenv(runVariable);
    if (folder == nullptr || run == nullptr)
        GTEST_SKIP() << "started by KillImport.leavesWholeFilesOnly alone";
    const auto container = openContainer(fs::path(folder) / "wells.well2");
    const auto tell = [](char c) { return write(statusPipe, &c, 1) == 1; };
    bool going = tell('o');
    for (std::size_t i = 0; going; ++i) {
        NORLEX_lasImportOptions options;
        options.workObject = wide(std::string(run) + "." + std::to_string(i / inputs));
        NORLEX_lasImport import(container->getBaseLink(), options);
        const auto result =
            import.importFile(wide((fs::path(folder) / inputName(i % inputs)).string()));
        going = tell(result.ok ? '+' : '-');
    }
}

TEST(KillImport, leavesWholeFilesOnly) {
    const temporary_folder folder;
    const fs::path path = folder.path() / "wells.well2";
    const fs::path stores = fileFolder(*newContainer(path));
    for (std::size_t i = 0; i < inputs; ++i)
        writeLas(folder.path() / inputName(i), "W" + std::to_string(i), rows);

    std::mt19937 random(std::random_device{}());
    const auto whole = timeOfImport(folder.path());
    std::uniform_real_distribution<double> part(0.0, 1.2);
    std::set<std::uint32_t> checked;
    std::size_t returned = 1;
    int interrupted = 0;
    for (int run = 0; run < kills; ++run) {
        const auto delay =
            std::chrono::duration_cast<std::chrono::microseconds>(part(random) * whole);
        returned += killImporter(folder.path(), run, static_cast<std::size_t>(run % 3), delay);
        interrupted += filesOf(stores).unfinished > 0 ? 1 : 0;

        auto container = openContainer(path);
        ASSERT_TRUE(container->isOK());
        std::vector<NORLEX_wellDescription> wells;
        NORLEX_well::getWellList(container->getBaseLink(), wells);
        for (const auto& well : wells)
            if (checked.insert(well.wellId).second)
                expectWhole(container->getBaseLink(), well, rows);
        EXPECT_GE(wells.size(), returned) << "an import that had returned is gone";
        EXPECT_LE(wells.size(), returned + static_cast<std::size_t>(run) + 1);
        container.reset();
        const stored found = filesOf(stores);
        EXPECT_EQ(found.samples, wells.size() * curvesOfFile) << "run " << run;
        EXPECT_EQ(found.emptyFolders, 0U) << "run " << run;
        EXPECT_EQ(found.pending, 0U) << "run " << run;
    }
    EXPECT_GT(interrupted, 0) << "no kill fell into an import";
    RecordProperty("imports", static_cast<int>(returned));
    RecordProperty("interrupted", interrupted);
}

// A program that is killed while it imports leaves each file in the container wholly or not at all.
#include "../support/killed_child.h"
#include "../support/run_figures.h"
#include "api_fixture.h"

#include <set>

using namespace apiTest;

namespace {

constexpr std::size_t inputs = 25;
constexpr std::size_t rows = 400;

std::string inputName(std::size_t number) {
    return "in" + std::to_string(number) + ".las";
}

// Imports one file after the other, each time into another work object.
const killedChild::program importer("importer", [](const killedChild::task& task) {
    const fs::path folder = task.argument;
    const auto container = openContainer(folder / "wells.well2");
    task.ready();
    bool going = true;
    for (std::size_t i = 0; going; ++i) {
        NORLEX_lasImportOptions options;
        options.workObject = wide(task.round + "." + std::to_string(i / inputs));
        NORLEX_lasImport import(container->getBaseLink(), options);
        const auto result = import.importFile(wide((folder / inputName(i % inputs)).string()));
        going = task.returned(result.ok);
    }
});

} // namespace

TEST(KillImport, leavesWholeFilesOnly) {
    const temporary_folder folder;
    const fs::path path = folder.path() / "wells.well2";
    const fs::path stores = fileFolder(*newContainer(path));
    for (std::size_t i = 0; i < inputs; ++i)
        writeLas(folder.path() / inputName(i), "W" + std::to_string(i), rows);

    killedChild::killer killer("importer", folder.path());
    std::set<std::uint32_t> checked;
    std::size_t returned = 0;
    std::size_t unfinished = 0;
    for (int round = 0; round < killedChild::rounds(30); ++round) {
        returned += killer.kill(static_cast<std::size_t>(round % 3));
        unfinished += filesOf(stores).unfinished > 0 ? 1U : 0U;

        auto container = openContainer(path);
        ASSERT_TRUE(container->isOK());
        std::vector<NORLEX_wellDescription> wells;
        NORLEX_well::getWellList(container->getBaseLink(), wells);
        for (const auto& well : wells)
            if (checked.insert(well.wellId).second)
                expectWhole(container->getBaseLink(), well, rows);
        EXPECT_GE(wells.size(), returned) << "an import that had returned is gone";
        EXPECT_LE(wells.size(), returned + static_cast<std::size_t>(round) + 1);
        std::vector<NORLEX_checkFinding> findings;
        EXPECT_TRUE(container->check(findings));
        EXPECT_TRUE(findings.empty()) << narrow(findings.front().kind);
        container.reset();
        const stored found = filesOf(stores);
        EXPECT_EQ(found.samples, wells.size() * curvesOfFile) << "round " << round;
        EXPECT_EQ(found.emptyFolders, 0U) << "round " << round;
        EXPECT_EQ(found.pending, 0U) << "round " << round;
        if (HasFailure())
            break;
    }
    EXPECT_GT(unfinished, 0U) << "no kill fell into an import";
    runFigures::tell("kills survived", killer.killed());
}

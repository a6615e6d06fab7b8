// A program that is killed while it writes rows, or the samples of a log, leaves each of its
// operations wholly or not at all.
#include "tests/support/killed_child.h"
#include "tests/support/run_figures.h"
#include "tests/wells/well_fixture.h"

#include "platform/numbers.h"

#include <chrono>
#include <thread>

namespace {

constexpr std::size_t rowsOfBatch = 1000; // of two properties, in turn
constexpr std::size_t samplesOfLog = 20'000;
const NORLEX_wellDescription w1{L"O", L"F", L"W-1", 0};
const NORLEX_propDescription gr{L"GR", L"LAS"};

// Connecting to a server takes most of a round.
int usualRounds() {
    return testEngine::isServer() ? 8 : 24;
}

std::unique_ptr<NORLEX_wellContainer> open(const std::string& path) {
    return std::make_unique<NORLEX_wellContainer>(
        NORLEX_wellContainer::makeDescription(files::wide(path)));
}

std::vector<NORLEX_bulkRow> batch(const std::wstring& name) {
    std::vector<NORLEX_bulkRow> rows(rowsOfBatch);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].top = static_cast<double>(i);
        rows[i].bot = static_cast<double>(i + 1);
        rows[i].values = {name, std::to_wstring(i)};
        rows[i].target = i % 2;
    }
    return rows;
}

// Loads one batch after the other, each into two properties of its own.
const killedChild::program loader("loader", [](const killedChild::task& task) {
    const auto container = open(task.argument);
    odbc_database* const db = container->getBaseLink();
    const auto id = NORLEX_well::getID(db, w1);
    task.ready();
    bool going = true;
    for (int i = 0; going; ++i) {
        const std::wstring name = L"batch " + std::to_wstring(i);
        going = task.returned(NORLEX_wellProperty::createDataBulk(
            db, {{id, {name, L"A"}}, {id, {name, L"B"}}}, batch(name), NORLEX_dataTypeInterval));
    }
});

// Of the n-th commit: every value is n, and their number differs from that of the one before.
std::vector<NORLEX_logSample> samplesOf(std::size_t n) {
    std::vector<NORLEX_logSample> samples(samplesOfLog + n % 7);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = {static_cast<double>(i), -static_cast<double>(i), static_cast<double>(n)};
    return samples;
}

// The number of the commit that the rows are of.
std::size_t lastCommit(odbc_database* db) {
    const auto log = NORLEX_well(db, w1).openProperty(gr);
    return static_cast<std::size_t>(
        numbers::toDouble(std::wstring_view(log->getComment())).value_or(0));
}

// Rewrites the samples of the log again and again, with the number of the commit in its rows.
const killedChild::program committer("committer", [](const killedChild::task& task) {
    const auto container = open(task.argument);
    odbc_database* const db = container->getBaseLink();
    NORLEX_well own(db, w1);
    const auto log = own.openProperty(gr);
    std::size_t n = lastCommit(db);
    task.ready();
    bool going = true;
    while (going) {
        ++n;
        transaction change(db);
        going = task.returned(change.isOpen() && log->setSamples(samplesOf(n)) && log->commit(false)
                              && log->setComment(db, log->getID(), std::to_wstring(n))
                              && change.commit());
    }
});

class KilledWriterTest : public WellTest {
protected:
    [[nodiscard]] std::string path() const { return files::native(folder / L"wells.well2"); }

    // A server may be at the last statement of a program that is dead: nobody can tell yet.
    void waitForTheServer() const {
        const std::wstring others = L"SELECT count(*) FROM pg_stat_activity WHERE datname = "
                                    L"current_database() AND pid <> pg_backend_pid()";
        for (int i = 0; testEngine::isServer() && i < 1000 && cell(others) != L"0"; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    void expectSound() const {
        std::vector<NORLEX_checkFinding> findings;
        EXPECT_TRUE(container->check(findings)) << lastError();
        for (const auto& finding : findings)
            ADD_FAILURE() << ts::strconv::toUtf8(finding.kind + L": " + finding.example);
    }
    // Closed, nothing is left to be finished.
    void expectNothingPending() {
        container.reset();
        EXPECT_FALSE(files::isFolder(folder / L"wells/.pending"));
    }
    // Answers how many batches there are; each must be whole.
    [[nodiscard]] std::size_t batches() const {
        NORLEX_well own(db(), w1);
        std::vector<NORLEX_propDescription> found;
        own.getPropertyList(found);
        for (const auto& prop : found) {
            const auto property = own.openProperty(prop);
            const auto records = property->getRecords();
            EXPECT_EQ(records.size(), rowsOfBatch / 2);
            for (std::size_t i = 0; i < records.size(); ++i) {
                const std::size_t row = 2 * i + (prop.group == L"B" ? 1 : 0);
                if (property->getValue(0, i) != prop.name
                    || property->getValue(1, i) != std::to_wstring(row)) {
                    ADD_FAILURE() << "row " << row;
                    break;
                }
            }
        }
        EXPECT_EQ(found.size() % 2, 0U);
        return found.size() / 2;
    }
    void removeBatches() const {
        ASSERT_TRUE(NORLEX_well::remove(db(), w1)) << lastError();
        ASSERT_TRUE(NORLEX_well::create(db(), w1)) << lastError();
    }
};

} // namespace

TEST_F(KilledWriterTest, loadsWholeBatchesOnly) {
    container.reset();
    killedChild::killer killer("loader", path());
    for (int round = 0; round < killedChild::rounds(usualRounds()) && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const std::size_t returned = killer.kill(static_cast<std::size_t>(round % 3));
        reopen();
        waitForTheServer();
        const std::size_t found = batches();
        EXPECT_GE(found, returned) << "a batch that had returned is gone";
        EXPECT_LE(found, returned + 1);
        expectSound();
        removeBatches();
        expectNothingPending();
    }
    EXPECT_GT(killer.inside(), 0U) << "no kill fell into a batch";
    runFigures::tell("kills survived", killer.killed());
}

TEST_F(KilledWriterTest, rowsAndSamplesOfALogAreOfOneCommit) {
    ASSERT_TRUE(NORLEX_wellProperty::createLAS(db(), wellId(), gr, L"0", samplesOf(0)));
    container.reset();
    killedChild::killer killer("committer", path());
    for (std::size_t round = 0, last = 0;
         round < static_cast<std::size_t>(killedChild::rounds(usualRounds())) && !HasFailure();
         ++round) {
        SCOPED_TRACE(round);
        const std::size_t returned = killer.kill(round % 3);
        reopen();
        const std::size_t found = lastCommit(db());
        EXPECT_GE(found, last + returned) << "a commit that had returned is gone";
        EXPECT_LE(found, last + returned + 1);
        last = found;
        std::vector<NORLEX_logSample> samples;
        NORLEX_well own(db(), w1);
        ASSERT_TRUE(own.openProperty(gr)->getSamples(samples)) << lastError();
        const auto expected = samplesOf(found);
        EXPECT_TRUE(std::equal(samples.begin(),
                               samples.end(),
                               expected.begin(),
                               expected.end(),
                               [](const auto& a, const auto& b) {
                                   return a.depth == b.depth && a.depthAbs == b.depthAbs
                                          && a.value == b.value;
                               }))
            << "rows of commit " << found << ", " << samples.size() << " samples";
        expectSound();
        expectNothingPending();
    }
    EXPECT_GT(killer.inside(), 0U) << "no kill fell into a commit";
    runFigures::tell("kills survived", killer.killed());
}

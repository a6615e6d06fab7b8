// Whether a commit came through that nobody heard of: the files must follow what the database says.
#include "tests/support/killed_child.h"
#include "tests/wells/well_fixture.h"

#include "platform/driver_choice.h"

namespace {

const NORLEX_wellDescription w1{L"O", L"F", L"W-1", 0};
const NORLEX_propDescription gr{L"GR", L"LAS"};

enum class loss { none, beforeTheCommit, behindTheCommit };

// A connection that is lost with the next commit.
class losing_driver final : public sql_driver {
public:
    losing_driver(std::unique_ptr<sql_driver> engine, std::shared_ptr<loss> planned)
        : m_engine(std::move(engine)), m_planned(std::move(planned)) {}

    bool connect(const std::string& string) override { return m_engine->connect(string); }
    bool isServer() const override { return m_engine->isServer(); }
    bool exec(std::string_view text) override { return !m_isLost && m_engine->exec(text); }
    std::int64_t affectedRows() const override { return m_engine->affectedRows(); }
    std::unique_ptr<sql_cursor> query(std::string_view text) override {
        return m_isLost ? nullptr : m_engine->query(text);
    }
    bool begin() override { return !m_isLost && m_engine->begin(); }
    bool commit() override {
        const loss planned = std::exchange(*m_planned, loss::none);
        if (planned == loss::none)
            return !m_isLost && m_engine->commit();
        m_isLost = true;
        const bool done =
            planned == loss::behindTheCommit ? m_engine->commit() : m_engine->rollback();
        EXPECT_TRUE(done) << m_engine->error();
        return false;
    }
    bool isLost() const override { return m_isLost; }
    bool rollback() override { return !m_isLost && m_engine->rollback(); }
    bool savepoint(int level) override { return !m_isLost && m_engine->savepoint(level); }
    bool release(int level) override { return !m_isLost && m_engine->release(level); }
    bool rollbackTo(int level) override { return !m_isLost && m_engine->rollbackTo(level); }
    bool backup(const std::string& path) override { return m_engine->backup(path); }
    bool keysWereGiven(const std::string& table, const std::string& key) override {
        return !m_isLost && m_engine->keysWereGiven(table, key);
    }
    std::string primaryKey() const override { return m_engine->primaryKey(); }
    std::string currentTime() const override { return m_engine->currentTime(); }
    std::string user() const override { return m_engine->user(); }
    bool wasStatementWrong() const override { return !m_isLost && m_engine->wasStatementWrong(); }
    std::string error() const override { return m_isLost ? "lost" : m_engine->error(); }

private:
    std::unique_ptr<sql_driver> m_engine;
    std::shared_ptr<loss> m_planned;
    bool m_isLost = false;
};

// One value, in the samples and in the comment.
bool rewrite(odbc_database* db, int value) {
    NORLEX_well own(db, w1);
    const auto log = own.openProperty(gr);
    transaction change(db);
    return change.isOpen() && log->setSamples({{1, 1, static_cast<double>(value)}})
           && log->commit(false)
           && NORLEX_wellProperty::setComment(db, log->getID(), std::to_wstring(value))
           && change.commit();
}

const killedChild::program rewriter("rewriter", [](const killedChild::task& task) {
    const NORLEX_wellContainer container(
        NORLEX_wellContainer::makeDescription(files::wide(task.argument)));
    task.ready();
    static_cast<void>(task.returned(rewrite(container.getBaseLink(), 1)));
});

class LostCommitTest : public WellTest {
protected:
    void SetUp() override {
        WellTest::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(NORLEX_wellProperty::createLAS(db(), wellId(), gr, L"0", {{1, 1, 0}}));
    }
    void TearDown() override { setDriverWrapper({}); }

    void expectStored(int value) {
        NORLEX_well own(db(), w1);
        const auto log = own.openProperty(gr);
        std::vector<NORLEX_logSample> samples;
        ASSERT_TRUE(log->getSamples(samples)) << lastError();
        ASSERT_EQ(samples.size(), 1U);
        EXPECT_EQ(log->getComment(), std::to_wstring(value));
        EXPECT_EQ(samples[0].value, value);
        container.reset();
        EXPECT_FALSE(files::isFolder(folder / L"wells/.pending"));
    }
};

} // namespace

TEST_F(LostCommitTest, theNextOpeningLetsTheFilesFollowTheRows) {
    const struct {
        const char* where;
        loss planned;
        int stored;
    } cases[] = {
        {"not stored", loss::beforeTheCommit, 0},
        {"stored, and the answer lost", loss::behindTheCommit, 1},
    };
    const auto planned = std::make_shared<loss>(loss::none);
    setDriverWrapper([planned](std::unique_ptr<sql_driver> engine) {
        return std::make_unique<losing_driver>(std::move(engine), planned);
    });
    for (const auto& c : cases) {
        SCOPED_TRACE(c.where);
        reopen();
        *planned = c.planned;
        EXPECT_FALSE(rewrite(db(), 1));
        EXPECT_FALSE(lastError().empty());
        reopen();
        expectStored(c.stored);
    }
}

// The program is dead, and the server still at its commit, which a trigger makes long.
TEST_F(LostCommitTest, aServerIsWaitedForThatIsStillAtIt) {
    if (!testEngine::isServer())
        GTEST_SKIP() << "of a server only";
    for (const wchar_t* statement :
         {L"CREATE FUNCTION wait_a_little() RETURNS trigger LANGUAGE plpgsql AS 'BEGIN PERFORM "
          L"pg_sleep(1); RETURN NEW; END'",
          L"CREATE CONSTRAINT TRIGGER slow AFTER INSERT ON meta DEFERRABLE INITIALLY DEFERRED FOR "
          L"EACH ROW EXECUTE FUNCTION wait_a_little()"})
        ASSERT_TRUE(db()->exec(statement)) << lastError();
    killedChild::killer("rewriter", files::native(folder / L"wells.well2")).killWhen([this] {
        return cell(L"SELECT count(*) FROM pg_stat_activity WHERE wait_event = 'PgSleep' AND "
                    L"datname = current_database()")
               != L"0";
    });
    reopen();
    ASSERT_TRUE(db()->exec(L"DROP TRIGGER slow ON meta")) << "waits for the commit, too";
    expectStored(1);
}

// What becomes of a container that one program has open when another one changes it as a whole.
#include "NORLEX_well.h"
#include "tests/store/upgrade_fixture.h"
#include "tests/support/container_fixture.h"

#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <list>

namespace {

const NORLEX_wellDescription w1{L"O", L"F", L"W-1", 0};
const NORLEX_propDescription gr{L"GR", L"LAS"};

// A program that is there before the test opens anything, so that it knows nothing of what is open
// here, and does its work when it is told to.
class other_program {
public:
    explicit other_program(const std::function<bool()>& work) {
        EXPECT_EQ(pipe(m_gate), 0);
        m_child = fork();
        char go = 0;
        if (m_child == 0)
            _exit(read(m_gate[0], &go, 1) == 1 && work() ? 0 : 1);
    }
    ~other_program() {
        close(m_gate[0]);
        close(m_gate[1]);
    }
    other_program(const other_program&) = delete;
    other_program& operator=(const other_program&) = delete;

    void go() const { EXPECT_EQ(write(m_gate[1], "", 1), 1); }
    [[nodiscard]] bool succeeded() const {
        int status = -1;
        return waitpid(m_child, &status, 0) == m_child && WIFEXITED(status)
               && WEXITSTATUS(status) == 0;
    }

private:
    int m_gate[2] = {-1, -1};
    pid_t m_child = -1;
};

NORLEX_contDescription describe(const std::wstring& path) {
    return NORLEX_wellContainer::makeDescription(path);
}

bool writeLog(const std::wstring& path, double value) {
    const NORLEX_wellContainer container(describe(path));
    odbc_database* const db = container.getBaseLink();
    return db != nullptr && NORLEX_well::create(db, w1)
           && NORLEX_wellProperty::createLAS(
               db, NORLEX_well::getID(db, w1), gr, L"", {{1, 1, value}});
}

class ReplacedTest : public ContainerTest {
protected:
    void SetUp() override {
        SKIP_ON_SERVER();
        ContainerTest::SetUp();
        path = folder / L"wells.well2";
    }
    [[nodiscard]] double value() const {
        NORLEX_well own(db(), w1);
        const auto log = own.openProperty(gr);
        std::vector<NORLEX_logSample> samples;
        return log && log->getSamples(samples) && samples.size() == 1 ? samples[0].value : -1;
    }
    std::wstring path;
};

} // namespace

// Each of them asks for the upgrade; one makes it, and the others find it made.
TEST_F(UpgradeTest, manyMayUpgradeAtOnce) {
    SKIP_ON_SERVER();
    for (int round = 0; round < 5; ++round) {
        SCOPED_TRACE(round);
        for (const auto& name : disk::names(folder.path()))
            ASSERT_TRUE(files::removeFile(folder / name));
        make(2);
        std::list<other_program> programs;
        for (int i = 0; i < 4; ++i)
            programs.emplace_back([this] {
                const bool isOpen = open();
                if (!isOpen)
                    std::fprintf(stderr, "%s\n", lastError().c_str());
                container.reset();
                return isOpen;
            });
        for (const auto& program : programs)
            program.go();
        for (const auto& program : programs)
            EXPECT_TRUE(program.succeeded());
        EXPECT_EQ(disk::names(folder.path()), (disk::list{L"wells.well2", L"wells.well2.v2.bak"}));
        questions.clear();
        ASSERT_TRUE(open()) << lastError();
        EXPECT_TRUE(questions.empty());
        container.reset();
        odbc_database copy;
        ASSERT_TRUE(copy.connect(files::native(path + L".v2.bak").string()));
        EXPECT_EQ(cell(copy, L"PRAGMA integrity_check"), L"ok");
        EXPECT_EQ(cell(copy, L"SELECT group_concat(version) FROM base_version"), L"2");
    }
}

// An idle program holds no lock that would keep others from replacing the container. What it writes
// then must not vanish with the file that only it has: it is refused, and told why.
TEST_F(ReplacedTest, writingIntoOneThatWasReplacedIsRefused) {
    const struct {
        const char* where;
        std::function<bool()> replace;
        double found; // in the new one; -1 for none
    } cases[] = {
        {"restored",
         [this] { return NORLEX_wellContainer::restore(folder / L"a.zip", describe(path), true); },
         1},
        {"made anew", [this] { return NORLEX_wellContainer::create(describe(path)); }, -1},
        {"removed",
         [this] { return files::removeFile(path) && files::removeTree(folder / L"wells"); },
         -1},
    };
    ASSERT_TRUE(writeLog(path, 1));
    ASSERT_TRUE(container->backup(folder / L"a.zip")) << lastError();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.where);
        container.reset();
        ASSERT_TRUE(NORLEX_wellContainer::restore(folder / L"a.zip", describe(path), true));
        const other_program other(c.replace);
        reopen();
        NORLEX_well own(db(), w1);
        const auto log = own.openProperty(gr);
        ASSERT_TRUE(log->setSamples({{1, 1, 2}}) && log->commit(false)) << lastError();
        other.go();
        ASSERT_TRUE(other.succeeded());
        const auto before = disk::tree(folder.path());
        EXPECT_FALSE(log->setSamples({{1, 1, 3}}) && log->commit(false));
        EXPECT_NE(NORLEX_lastError().find(path), std::wstring::npos) << lastError();
        EXPECT_NE(NORLEX_lastError().find(L"open it again"), std::wstring::npos) << lastError();
        EXPECT_FALSE(container->setProjection(L"x"));
        container.reset();
        EXPECT_EQ(disk::tree(folder.path()), before);
        if (!files::isFile(path))
            continue;
        reopen();
        EXPECT_EQ(value(), c.found);
    }
}

TEST_F(ReplacedTest, oneThatIsWrittenIsNotReplaced) {
    ASSERT_TRUE(writeLog(path, 1) && container->backup(folder / L"a.zip"));
    container.reset();
    const other_program other(
        [this] { return NORLEX_wellContainer::restore(folder / L"a.zip", describe(path), true); });
    reopen();
    ASSERT_TRUE(container->beginTransaction() && container->setProjection(L"x"));
    other.go();
    EXPECT_FALSE(other.succeeded());
    ASSERT_TRUE(container->endTransaction()) << lastError();
    reopen();
    EXPECT_EQ(container->getProjection(), L"x");
    EXPECT_EQ(value(), 1);
}

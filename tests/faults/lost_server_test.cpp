// A server that goes away while a container on it is open, and comes back at the same place.
#include "tests/support/content_snapshot.h"
#include "tests/wells/well_fixture.h"

#include "NORLEX_lasImport.h"
#include "platform/last_error.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <functional>

namespace {

const NORLEX_propDescription gr{L"GR", L"LAS"};

// A cluster of the test's own. Its folder lies beside the test's, which others may not enter: the
// server runs as another user.
class own_server {
public:
    own_server() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "welldb-server.XXXXXX").string();
        m_folder = mkdtemp(pattern.data()) == nullptr ? std::string() : pattern;
        const std::string settings = run("start");
        for (const char* name : {"WELLDB_TEST_SERVER", "WELLDB_TEST_USER", "WELLDB_TEST_PASSWORD"})
            m_isStarted = take(settings, name);
        // Whatever becomes of the test, the server goes.
        EXPECT_EQ(pipe2(m_end, O_CLOEXEC), 0); // a server that comes back would keep it open
        m_guard = fork();
        if (m_guard != 0)
            return;
        close(m_end[1]);
        char none = 0;
        static_cast<void>(read(m_end[0], &none, 1));
        execl(script, script, "stop", m_folder.c_str(), nullptr);
        _exit(127);
    }
    ~own_server() {
        close(m_end[0]);
        close(m_end[1]);
        waitpid(m_guard, nullptr, 0);
        for (const auto& [name, value] : m_before)
            setenv(name.c_str(), value.c_str(), 1);
    }
    own_server(const own_server&) = delete;
    own_server& operator=(const own_server&) = delete;

    [[nodiscard]] bool isStarted() const { return m_isStarted; }
    void goAway() const { run("halt"); }
    void comeBack() const { run("resume"); }
    // What names it in a line.
    [[nodiscard]] static std::wstring port() {
        const std::string all = testEngine::variable("WELLDB_TEST_SERVER");
        const auto port = all.substr(all.find("Port=") + 5);
        return files::wide(port.substr(0, port.find(';')));
    }

private:
    static constexpr const char* script = WELLDB_SOURCE_DIR "/tools/test_server.sh";

    std::string run(const char* verb) const {
        const std::string line =
            std::string("'") + script + "' " + verb + " '" + m_folder + "' 2>&1";
        std::string out;
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(line.c_str(), "r"),
                                                                     &pclose);
        char buffer[512];
        while (output && std::fgets(buffer, sizeof buffer, output.get()) != nullptr)
            out += buffer;
        return out;
    }
    // From "export NAME='value'".
    bool take(const std::string& settings, const std::string& name) {
        const auto from = settings.find(name + "='");
        if (from == std::string::npos)
            return false;
        const auto start = from + name.size() + 2;
        m_before[name] = testEngine::variable(name.c_str());
        setenv(name.c_str(), settings.substr(start, settings.find('\'', start) - start).c_str(), 1);
        return true;
    }

    std::string m_folder;
    bool m_isStarted = false;
    std::map<std::string, std::string> m_before;
    int m_end[2] = {-1, -1};
    pid_t m_guard = -1;
};

class LostServerTest : public WellTest {
protected:
    void SetUp() override {
        if (!testEngine::isServer() || testEngine::isMissing())
            GTEST_SKIP() << "of a server only";
        server = std::make_unique<own_server>();
        ASSERT_TRUE(server->isStarted());
        WellTest::SetUp();
        ASSERT_TRUE(makeLog(gr)) << lastError();
        before = contentSnapshot::take(*container);
    }
    void expectUnchanged() const {
        EXPECT_EQ(contentSnapshot::differences(before, contentSnapshot::take(*container)), "");
    }
    static void expectLine(const std::wstring& says, const char* where) {
        EXPECT_NE(NORLEX_lastError().find(says), std::wstring::npos)
            << where << ": " << lastError();
        EXPECT_EQ(NORLEX_lastError().find(L"t{e}s"), std::wstring::npos) << "the password";
    }
    // Each answers whether it succeeded.
    using operation = std::pair<const char*, std::function<bool()>>;
    [[nodiscard]] std::vector<operation> operations(NORLEX_well& own,
                                                    NORLEX_wellProperty& log) const {
        return {
            {"a setting", [this] { return container->setProjection(L"x"); }},
            {"a well",
             [this] {
                 return NORLEX_well::create(db(), {L"O", L"F", L"W-2", 0});
             }},
            {"the altitude", [&own] { return own.setAltitude(5); }},
            {"a new log",
             [this] {
                 return makeLog({L"DT", L"LAS"});
             }},
            {"samples",
             [&log] {
                 return log.setSamples({{1, 1, 1}}) && log.commit(false);
             }},
            {"a removal", [this] { return NORLEX_well::remove(db(), names); }},
            {"a transaction", [this] { return container->beginTransaction(); }},
            {"an import",
             [this] {
                 const auto path = folder.write(L"a.las",
                                                "~V\nVERS. 2.0:\nWRAP. NO:\n~W\nNULL. -999.25:\n"
                                                "WELL. W-3:\n~C\nDEPT.M:\nA.M:\n~A\n1 2\n");
                 return NORLEX_lasImport(db(), {}).importFile(path).ok;
             }},
            {"a check",
             [this] {
                 std::vector<NORLEX_checkFinding> findings;
                 return container->check(findings);
             }},
            {"a backup", [this] { return container->backup(folder / L"a.zip"); }},
            {"a list",
             [this] {
                 std::vector<NORLEX_wellDescription> wells;
                 NORLEX_well::getWellList(db(), wells);
                 return !wells.empty();
             }},
            {"a number", [this] { return container->getWellCount() > 0; }},
            {"the version", [this] { return container->getVersionNumber() != 0; }},
        };
    }

    std::unique_ptr<own_server> server;
    contentSnapshot::content before;
};

} // namespace

TEST_F(LostServerTest, everyOperationIsRefusedUntilTheContainerIsOpenedAgain) {
    auto own = std::make_unique<NORLEX_well>(db(), names);
    auto log = own->openProperty(gr);
    server->goAway();
    for (const bool isBack : {false, true}) {
        SCOPED_TRACE(isBack ? "the server is back" : "the server is away");
        for (const auto& [where, works] : operations(*own, *log)) {
            refuse(L"");
            EXPECT_FALSE(works()) << where;
            expectLine(L"the connection to the server was lost", where);
        }
        if (isBack)
            break;
        refuse(L"");
        const auto begun = std::chrono::steady_clock::now();
        const NORLEX_wellContainer another(container->getContDescription());
        EXPECT_FALSE(another.isOK());
        expectLine(L"no server answers", "opening");
        expectLine(own_server::port(), "opening");
        expectLine(L"wells.well2", "opening");
        EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(30)); // 10 at most
        server->comeBack();
    }
    ASSERT_TRUE(container->updateConnectionPath(folder / L"wells.well2")) << lastError();
    expectUnchanged();
    EXPECT_TRUE(container->setProjection(L"x")) << lastError();
    reopen();
    EXPECT_EQ(container->getProjection(), L"x");
}

TEST_F(LostServerTest, anOpenTransactionIsLostAsAWhole) {
    const std::wstring log = samplePath(gr);
    const std::wstring newLog = samplePath({L"DT", L"LAS"});
    const std::string samples = temp_folder::read(log);
    {
        NORLEX_well own(db(), names);
        const auto property = own.openProperty(gr);
        transaction change(db());
        ASSERT_TRUE(change.isOpen() && property->setSamples({{1, 1, 1}})
                    && property->commit(false));
        ASSERT_TRUE(makeLog({L"DT", L"LAS"}) && own.setAltitude(7));
        ASSERT_NE(temp_folder::read(log), samples);
        ASSERT_TRUE(files::isFile(newLog));
        server->goAway();
        EXPECT_FALSE(change.commit());
        expectLine(L"the connection to the server was lost", "the commit");
        expectLine(L"wells.well2", "the commit");
    }
    EXPECT_EQ(temp_folder::read(log), samples) << "at once";
    EXPECT_FALSE(files::isFile(newLog));
    server->comeBack();
    reopen();
    expectUnchanged();
    EXPECT_TRUE(makeLog({L"DT", L"LAS"})) << lastError();
    container.reset();
    EXPECT_FALSE(files::isFolder(folder / L"wells/.pending"));
}

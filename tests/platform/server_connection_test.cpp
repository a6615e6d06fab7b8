// Connections to a server that are refused or lost, and what is said of it.
#include "platform/strconv.h"
#include "tests/platform/server_driver_fixture.h"

#include <array>
#include <atomic>
#include <thread>

using namespace sqlText;

namespace {

std::string refusal(const std::string& connectionString) {
    const auto driver = makeDriver(connectionString);
    return driver->connect(connectionString) ? std::string("(connected)") : driver->error();
}

TEST_F(ServerDriverTest, aLostConnectionStaysLost) {
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"lost"));
    const auto process = one(L"SELECT pg_backend_pid()");
    EXPECT_EQ(one(other, L"SELECT pg_terminate_backend(" + process + L")"), L"1");
    EXPECT_FALSE(insert(L"after"));
    EXPECT_NE(db.last_error().find(L"was lost"), std::wstring::npos);
    EXPECT_EQ(db.query(L"SELECT 1"), nullptr);
    EXPECT_FALSE(db.end_transaction());
    EXPECT_FALSE(db.begin_transaction()) << "no new connection without being asked";
    EXPECT_FALSE(insert(L"later"));
    EXPECT_NE(db.last_error().find(L"connect again"), std::wstring::npos);
    EXPECT_EQ(one(other, L"SELECT count(*) FROM t"), L"0");
    ASSERT_TRUE(db.connect(test_server::instance().string()));
    EXPECT_TRUE(insert(L"again"));
}

TEST_F(ServerDriverTest, saysWhyItCannotConnect) {
    const auto& server = test_server::instance();
    const struct {
        const char* where;
        std::string string;
        const char* words;
    } cases[] = {
        {"password", server.stringOf("postgres", "nobody", "se;cr{et}"), "wrong user or password"},
        {"database", server.stringOf("nowhere"), "the server has no such database"},
        {"port", "Server=127.0.0.1;Port=1;Database=a;UID=b;PWD=secret;", "no server answers"},
        {"driver", "Driver=none;Server=here;UID=me;PWD=secret;", "is not installed"},
        {"source", "DSN=none;UID=me;PWD=secret;", "no ODBC data source"},
    };
    for (const auto& [where, string, words] : cases) {
        const std::string line = refusal(string);
        EXPECT_NE(line.find(words), std::string::npos) << where << ": " << line;
        EXPECT_EQ(line.find("cr"), std::string::npos) << "the password: " << line;
        EXPECT_EQ(line.find('\n'), std::string::npos) << line;
    }
}

TEST_F(ServerDriverTest, everyPasswordComesThrough) {
    auto& admin = test_server::instance().admin();
    const std::string role = "welldb_role_" + std::to_string(getpid());
    ASSERT_TRUE(admin.exec("CREATE ROLE " + role + " LOGIN"));
    for (const char* password : {"a%41+b c", "}{;=", "пароль\\", "PWD=x;y", "{plain}"}) {
        ASSERT_TRUE(admin.exec("ALTER ROLE " + role + " PASSWORD '" + password + "'"));
        const auto string = test_server::stringOf(test_server::instance().name(), role, password);
        const auto driver = makeDriver(string);
        EXPECT_TRUE(driver->connect(string)) << password << ": " << driver->error();
        EXPECT_EQ(driver->user(), role);
    }
    EXPECT_TRUE(admin.exec("DROP ROLE " + role));
}

TEST_F(ServerDriverTest, saysWhatAnAdministratorMustDo) {
    auto& admin = test_server::instance().admin();
    const std::string role = "welldb_poor_" + std::to_string(getpid());
    const std::string fresh = role + "_db";
    ASSERT_TRUE(admin.exec("CREATE ROLE " + role + " LOGIN PASSWORD 'p'"));
    ASSERT_TRUE(admin.exec("CREATE DATABASE " + fresh + " TEMPLATE template0"));
    const auto string = test_server::stringOf(fresh, role, "p");
    const std::string line = refusal(string);
    EXPECT_NE(line.find("GRANT CREATE ON DATABASE \"" + fresh + "\" TO \"" + role + "\""),
              std::string::npos)
        << line;
    {
        const auto owner = makeDriver(test_server::stringOf(fresh));
        ASSERT_TRUE(owner->connect(test_server::stringOf(fresh))) << "creates the functions";
        ASSERT_TRUE(owner->exec("CREATE TABLE t (id " + owner->primaryKey() + ", v TEXT)"));
        ASSERT_TRUE(owner->exec("INSERT INTO t (v) VALUES ('a')"));
        ASSERT_TRUE(owner->exec("GRANT SELECT ON t TO " + role));
    }
    EXPECT_EQ(refusal(string), "(connected)") << "and any role may use them";
    {
        const auto driver = makeDriver(string);
        ASSERT_TRUE(driver->connect(string));
        EXPECT_FALSE(driver->exec("CREATE TABLE a (b INTEGER)"));
        EXPECT_NE(driver->error().find("no right"), std::string::npos) << driver->error();
        ASSERT_TRUE(driver->begin());
        const auto rows = driver->query("SELECT max(id) FROM t");
        ASSERT_TRUE(rows && rows->next()) << "a reader has no use for the lock";
        EXPECT_EQ(rows->integer(0), 1);
        EXPECT_TRUE(driver->commit()) << driver->error();
    }
    EXPECT_TRUE(admin.exec("DROP DATABASE " + fresh + " WITH (FORCE)"));
    EXPECT_TRUE(admin.exec("DROP ROLE " + role));
}

TEST_F(ServerDriverTest, manyMayBeFirst) {
    auto& admin = test_server::instance().admin();
    const std::string fresh = "welldb_first_" + std::to_string(getpid());
    ASSERT_TRUE(admin.exec("CREATE DATABASE " + fresh + " TEMPLATE template0"));
    std::array<std::string, 4> outcomes;
    {
        std::array<std::thread, 4> threads;
        for (std::size_t i = 0; i < threads.size(); ++i)
            threads[i] =
                std::thread([&, i] { outcomes[i] = refusal(test_server::stringOf(fresh)); });
        for (auto& thread : threads)
            thread.join();
    }
    for (const auto& outcome : outcomes)
        EXPECT_EQ(outcome, "(connected)");
    EXPECT_TRUE(admin.exec("DROP DATABASE " + fresh + " WITH (FORCE)"));
}

} // namespace

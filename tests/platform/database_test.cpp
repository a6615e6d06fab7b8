#include "NORLEX_lastError.h"
#include "odbc_database.h"
#include "platform/sql_text.h"
#include "platform/transaction.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

using namespace sqlText;

namespace {

class DatabaseTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(db.connect(":memory:"));
        ASSERT_TRUE(db.exec(L"CREATE TABLE t (id " + db.primary_key() + L", v TEXT, x REAL)"));
    }
    std::wstring one(const std::wstring& query) {
        const auto rows = db.query(query);
        return rows && rows->next() ? rows->get_text(0) : L"(no row)";
    }
    bool insert(const std::wstring& value) {
        return db.exec(sql(L"INSERT INTO t (v) VALUES (", quoted(value), L")"));
    }
    std::wstring count() { return one(L"SELECT count(*) FROM t"); }

    odbc_database db;
};

TEST_F(DatabaseTest, storesEveryTextExactly) {
    for (const std::wstring& text : {std::wstring(L"O'Brien"),
                                     std::wstring(L"'; DELETE FROM t; --"),
                                     std::wstring(L"строка\r\n\tвторая"),
                                     std::wstring(L"\U0001F6E2 \u0001"),
                                     std::wstring(10'000, L'ж'),
                                     std::wstring()}) {
        ASSERT_TRUE(insert(text));
        EXPECT_EQ(one(L"SELECT v FROM t ORDER BY id DESC LIMIT 1"), text);
    }
    EXPECT_FALSE(insert(std::wstring(L"a\0b", 3))) << "a NUL would cut the statement";
    EXPECT_FALSE(insert(std::wstring(1, static_cast<wchar_t>(0xD800)))) << "half a surrogate pair";
}

TEST_F(DatabaseTest, numbersComeBackToTheLastBitInAnyLocale) {
    for (const double value : {0.1, -1234567.890123, 5e-324, 1.7976931348623157e308, 2e6}) {
        ASSERT_TRUE(db.exec(sql(L"INSERT INTO t (x) VALUES (", number(value), L")")));
        const auto rows = db.query(L"SELECT x FROM t ORDER BY id DESC LIMIT 1");
        ASSERT_TRUE(rows && rows->next());
        EXPECT_EQ(rows->get_double(0), value);
        EXPECT_EQ(rows->get_text(0), number(value));
    }
    EXPECT_EQ(fixed(1.005, 2), L"1.00") << "the double lies below the tie";
    EXPECT_EQ(fixed(-0.004, 2), L"-0.00");
}

TEST_F(DatabaseTest, runsExactlyOneStatement) {
    EXPECT_FALSE(db.exec(L"INSERT INTO t (v) VALUES ('a'); DELETE FROM t"));
    EXPECT_NE(db.last_error().find(L"after the end"), std::wstring::npos);
    EXPECT_FALSE(db.exec(L""));
    EXPECT_FALSE(db.exec(L"SELEKT"));
    EXPECT_EQ(db.query(L"SELECT nothing FROM nowhere"), nullptr);
    EXPECT_EQ(count(), L"0");
}

TEST_F(DatabaseTest, foldsCaseInEveryScript) {
    EXPECT_EQ(one(L"SELECT lower('СКВАЖИНА №1 Ёж Well')"), L"скважина №1 ёж well");
    EXPECT_EQ(one(L"SELECT upper('скважина ß')"), L"СКВАЖИНА SS");
    EXPECT_EQ(one(L"SELECT coalesce(lower(NULL), 'null')"), L"null");
}

TEST_F(DatabaseTest, keysAreNeverGivenTwice) {
    ASSERT_TRUE(insert(L"a"));
    ASSERT_TRUE(db.exec(L"DELETE FROM t"));
    ASSERT_TRUE(insert(L"b"));
    EXPECT_EQ(one(L"SELECT id FROM t"), L"2");
}

TEST_F(DatabaseTest, innerLevelsRollBackAlone) {
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"outer"));
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"inner"));
    db.rollback();
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"second"));
    ASSERT_TRUE(db.end_transaction());
    ASSERT_TRUE(db.end_transaction());
    EXPECT_EQ(one(L"SELECT group_concat(v) FROM t"), L"outer,second");
}

// A failed write must not be followed by a commit of the rest.
TEST_F(DatabaseTest, aFailedWriteDoomsItsLevelOnly) {
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"kept"));
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"lost"));
    EXPECT_FALSE(db.exec(L"INSERT INTO nowhere VALUES (1)"));
    EXPECT_FALSE(insert(L"after the failure"));
    EXPECT_FALSE(db.begin_transaction());
    EXPECT_NE(NORLEX_lastError().find(L"nowhere"), std::wstring::npos) << "the first cause";
    EXPECT_FALSE(db.end_transaction());
    EXPECT_TRUE(insert(L"after the level"));
    EXPECT_EQ(db.query(L"SELECT * FROM nowhere"), nullptr) << "a failed query dooms nothing";
    EXPECT_TRUE(db.end_transaction());
    EXPECT_EQ(one(L"SELECT group_concat(v) FROM t"), L"kept,after the level");
}

TEST_F(DatabaseTest, actionsRunOnceAfterTheOutermostCommit) {
    std::string log;
    const auto say = [&](const char* what) { db.after_commit([&log, what] { log += what; }); };
    say("1");
    EXPECT_EQ(log, "1") << "at once outside a transaction";
    {
        transaction outer(&db);
        say("2");
        {
            transaction inner(&db);
            say("x");
        }
        {
            transaction inner(&db);
            say("3");
            ASSERT_TRUE(inner.commit());
        }
        EXPECT_EQ(log, "1");
        ASSERT_TRUE(outer.commit());
    }
    EXPECT_EQ(log, "123");
    {
        transaction abandoned(&db);
        say("y");
    }
    EXPECT_EQ(log, "123");
}

TEST(Database, refusesWhatIsNoDatabase) {
    const temp_folder folder;
    odbc_database db;
    EXPECT_FALSE(db.connect("Driver=none;Server=here;UID=me;PWD=secret;"));
    EXPECT_NE(NORLEX_lastError().find(L"Server=here"), std::wstring::npos);
    EXPECT_EQ(NORLEX_lastError().find(L"secret"), std::wstring::npos) << "a password is not shown";
    EXPECT_FALSE(db.connect("/no/such/folder/a.well2"));
    const auto text = folder.write(L"text.well2", std::string(4096, 'x'));
    EXPECT_FALSE(db.connect(files::native(text).native()));
    EXPECT_NE(NORLEX_lastError().find(L"not a database"), std::wstring::npos) << "says why";
    EXPECT_FALSE(db.is_connected());
    EXPECT_FALSE(db.exec(L"CREATE TABLE t (a)"));
    EXPECT_EQ(folder.read(text), std::string(4096, 'x')) << "left as it was";
    EXPECT_TRUE(db.connect(files::native(folder / L"a=b;c;.well2").native())) << "a path, no pairs";
}

TEST(Database, aNewFileHasThePageSizeOfTheSchema) {
    const temp_folder folder;
    odbc_database db;
    ASSERT_TRUE(db.connect(files::native(folder / L"a.well2").native()));
    ASSERT_TRUE(db.exec(L"CREATE TABLE t (a)"));
    const auto rows = db.query(L"PRAGMA page_size");
    ASSERT_TRUE(rows && rows->next());
    EXPECT_EQ(rows->get_int(0), 8192);
}

} // namespace

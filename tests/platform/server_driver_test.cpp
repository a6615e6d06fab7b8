#include "platform/strconv.h"
#include "tests/platform/server_driver_fixture.h"

#include <array>
#include <atomic>
#include <cfloat>
#include <chrono>
#include <clocale>
#include <limits>
#include <set>
#include <thread>

using namespace sqlText;

namespace {

TEST_F(ServerDriverTest, storesEveryTextExactly) {
    std::wstring longest;
    for (int i = 0; i < 700'000; ++i)
        longest += L"\U0001F6E2ж\\'%;?{fn now()}"; // a pair of UTF-16 at every offset of a part
    const std::array texts = {
        std::wstring(L"O'Brien"),
        std::wstring(L"'; DELETE FROM t; --"),
        std::wstring(L"строка\r\n\tвторая\n"),
        std::wstring(L"\U0001F6E2 \u0001 \u00A0"),
        std::wstring(L"?, :x, $1, {d '2020-01-01'}, \\, %"),
        std::wstring(127, L'ж'), // as long as a place in a block, and one more
        std::wstring(128, L'ж'),
        std::wstring(10'000, L'ж'),
        longest,
        std::wstring(),
    };
    for (const auto& text : texts)
        ASSERT_TRUE(insert(text)) << text.substr(0, 40).size();
    const auto rows = db.query(L"SELECT v, id FROM t ORDER BY id");
    ASSERT_TRUE(rows);
    for (const auto& text : texts) {
        ASSERT_TRUE(rows->next());
        EXPECT_TRUE(rows->get_text(0) == text) << text.size() << ", " << rows->get_text(0).size();
    }
    EXPECT_FALSE(rows->next());
}

TEST_F(ServerDriverTest, manyRowsAreStoredAsTheyAre) {
    const std::array<std::wstring, 6> texts = {
        L"O'Brien", L"\\ {fn now()} \"q\", ?", L"строка\r\n\t", L"NULL", L"", L"\U0001F6E2"};
    std::wstring statement = L"INSERT INTO t (v) VALUES ";
    for (int i = 0; i < 600; ++i)
        statement += (i == 0 ? L"(" : L",(")
                     + (i % 7 == 6 ? L"NULL" : quoted(texts[static_cast<std::size_t>(i % 7)]))
                     + L")";
    ASSERT_TRUE(db.exec(statement)) << ts::strconv::toUtf8(db.last_error());
    EXPECT_EQ(db.affected_rows(), 600);
    const auto rows = db.query(L"SELECT v, id FROM t ORDER BY id");
    for (int i = 0; i < 600; ++i) {
        ASSERT_TRUE(rows && rows->next());
        EXPECT_EQ(rows->is_null(0), i % 7 == 6);
        EXPECT_EQ(rows->get_text(0), i % 7 == 6 ? L"" : texts[static_cast<std::size_t>(i % 7)]);
    }
}

TEST_F(ServerDriverTest, numbersComeBackToTheLastBitInAnyLocale) {
    const char* const comma = std::setlocale(LC_NUMERIC, "ru_RU.UTF-8");
    for (const double value :
         {0.1, -1234567.890123, 5e-324, DBL_MAX, 2e6, 1e15, 123456789012345680.0}) {
        ASSERT_TRUE(db.exec(sql(L"INSERT INTO t (x) VALUES (", number(value), L")")));
        const auto rows = db.query(L"SELECT x FROM t ORDER BY id DESC LIMIT 1");
        ASSERT_TRUE(rows && rows->next());
        EXPECT_EQ(rows->get_double(0), value) << (comma != nullptr ? comma : "C");
        EXPECT_EQ(rows->get_text(0), number(value));
    }
    std::setlocale(LC_NUMERIC, "C");
    for (const auto value :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        ASSERT_TRUE(db.exec(L"UPDATE t SET n = " + key(value)));
        const auto rows = db.query(L"SELECT n FROM t");
        ASSERT_TRUE(rows && rows->next());
        EXPECT_EQ(rows->get_counter(0), value);
        EXPECT_EQ(rows->get_text(0), key(value));
    }
}

TEST_F(ServerDriverTest, readsWhatIsThereAsAskedFor) {
    const auto rows = db.query(
        L"SELECT NULL, '12.5 m', 7, 2.5, 'inf', 1 = 1, sum(id), 1000000.0::float8, 1.50::numeric "
        L"FROM t");
    ASSERT_TRUE(rows && rows->next());
    EXPECT_TRUE(rows->is_null(0));
    EXPECT_EQ(rows->get_text(0), L"");
    EXPECT_EQ(rows->get_double(0), 0);
    EXPECT_EQ(rows->get_counter(0), 0);
    EXPECT_EQ(rows->get_double(1), 12.5) << "by the leading number";
    EXPECT_EQ(rows->get_int(1), 12);
    EXPECT_EQ(rows->get_text(2), L"7");
    EXPECT_EQ(rows->get_double(2), 7);
    EXPECT_EQ(rows->get_int(3), 2);
    EXPECT_EQ(rows->get_double(4), 0) << "a word";
    EXPECT_EQ(rows->get_int(5), 1);
    EXPECT_TRUE(rows->is_null(6)) << "the sum of no rows";
    EXPECT_EQ(rows->get_text(7), L"1e+06") << "as the local engine's driver spells it";
    EXPECT_EQ(rows->get_int(7), 1'000'000);
    EXPECT_EQ(rows->get_text(8), L"1.5");
    EXPECT_FALSE(rows->next());
}

// Three blocks, the last of them short, with long texts here and there.
TEST_F(ServerDriverTest, readsManyRowsInBlocks) {
    const auto lengthOf = [](int row) { return row % 499 == 0 ? 1000 + row : row % 50; };
    const auto rows = db.query(
        L"SELECT n, repeat('ж', (CASE WHEN n % 499 = 0 THEN 1000 + n ELSE n % 50 END)::int), "
        L"CASE WHEN n % 3 = 0 THEN NULL ELSE n * 0.5::float8 END "
        L"FROM generate_series(1, 1234) AS s(n) ORDER BY n");
    ASSERT_TRUE(rows);
    int row = 0;
    while (rows->next()) {
        ++row;
        ASSERT_EQ(rows->get_int(0), row);
        ASSERT_EQ(rows->get_text(1).size(), static_cast<std::size_t>(lengthOf(row))) << row;
        ASSERT_EQ(rows->is_null(2), row % 3 == 0);
        ASSERT_EQ(rows->get_double(2), row % 3 == 0 ? 0 : row * 0.5);
    }
    EXPECT_EQ(row, 1234);
    const auto whole = db.query(L"SELECT n FROM generate_series(1, 1000) AS s(n)");
    for (row = 0; whole->next();)
        ++row;
    EXPECT_EQ(row, 1000) << "two full blocks";
}

TEST_F(ServerDriverTest, queriesMayStandInsideEachOther) {
    ASSERT_TRUE(insert(L"a") && insert(L"b") && insert(L"c"));
    ASSERT_TRUE(db.begin_transaction());
    std::wstring seen;
    const auto outer = db.query(L"SELECT id, v FROM t ORDER BY id");
    while (outer && outer->next()) {
        seen += outer->get_text(1) + one(L"SELECT v FROM t WHERE id > " + outer->get_text(0));
        EXPECT_TRUE(db.exec(L"UPDATE t SET x = 1 WHERE id = " + outer->get_text(0)));
        if (seen.size() == 2) {
            EXPECT_TRUE(db.end_transaction());
        }
    }
    EXPECT_EQ(seen, L"abbcc(no row)");
    auto rows = db.query(L"SELECT v FROM t ORDER BY id");
    db.disconnect();
    ASSERT_TRUE(rows->next()) << "the rows outlive the connection";
    EXPECT_EQ(rows->get_text(0), L"a");
}

TEST_F(ServerDriverTest, runsExactlyOneStatement) {
    EXPECT_FALSE(db.exec(L"INSERT INTO t (v) VALUES ('a'); DELETE FROM t"));
    EXPECT_NE(db.last_error().find(L"after the end"), std::wstring::npos);
    EXPECT_EQ(db.query(L"SELECT 1; SELECT 2"), nullptr);
    EXPECT_FALSE(db.exec(L""));
    EXPECT_FALSE(db.exec(L"SELEKT"));
    EXPECT_TRUE(db.exec(L"PRAGMA cache_size=50000")) << "nothing to set on a server";
    EXPECT_TRUE(insert(L"a") && insert(L"b"));
    EXPECT_TRUE(db.exec(L"UPDATE t SET x = 1"));
    EXPECT_EQ(db.affected_rows(), 2);
    EXPECT_TRUE(db.exec(L"DELETE FROM t WHERE v = 'none'")) << "no row is a success";
    EXPECT_EQ(db.affected_rows(), 0);
    EXPECT_FALSE(db.backup(L"copy.well2"));
}

TEST_F(ServerDriverTest, aFailedQueryLeavesTheTransactionUsable) {
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"kept"));
    EXPECT_EQ(db.query(L"SELECT * FROM nowhere"), nullptr);
    EXPECT_NE(db.last_error().find(L"no such table"), std::wstring::npos);
    EXPECT_EQ(db.query(L"SELECT 1 / (SELECT count(*) FROM t WHERE v = 'x') -- ;"), nullptr);
    EXPECT_EQ(one(L"SELECT v FROM t -- the end"), L"kept");
    ASSERT_TRUE(insert(L"after"));
    ASSERT_TRUE(db.end_transaction());
    EXPECT_EQ(one(other, L"SELECT count(*) FROM t"), L"2");
}

TEST_F(ServerDriverTest, aFailedWriteDoomsItsLevelOnly) {
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"kept"));
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"lost"));
    EXPECT_FALSE(db.exec(L"INSERT INTO nowhere VALUES (1)"));
    EXPECT_FALSE(insert(L"after the failure"));
    EXPECT_FALSE(db.end_transaction());
    EXPECT_TRUE(insert(L"after the level"));
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(L"inner"));
    ASSERT_TRUE(db.end_transaction());
    EXPECT_TRUE(db.end_transaction());
    EXPECT_EQ(all(), L"kept,after the level,inner");

    // Below the rules of odbc_database: the server takes the COMMIT of a failed transaction.
    const auto driver = makeDriver(test_server::instance().string());
    ASSERT_TRUE(driver->connect(test_server::instance().string()));
    ASSERT_TRUE(driver->begin());
    ASSERT_TRUE(driver->exec("INSERT INTO t (v) VALUES ('gone')"));
    EXPECT_FALSE(driver->exec("SELEKT"));
    EXPECT_EQ(driver->query("SELECT 1"), nullptr);
    EXPECT_FALSE(driver->commit()) << "nothing would be written";
    EXPECT_TRUE(driver->rollback());
    EXPECT_TRUE(driver->exec("INSERT INTO t (v) VALUES ('next')"));
    EXPECT_EQ(all(), L"kept,after the level,inner,next");
}

// Each reads its own key back while the other one inserts.
TEST_F(ServerDriverTest, keysReadBackAreOnesOwn) {
    ASSERT_TRUE(insert(db, L"mine"));
    ASSERT_TRUE(insert(other, L"another's"));
    EXPECT_EQ(one(db, L"SELECT max(id) FROM t"), L"1") << "outside of a transaction";
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_TRUE(insert(db, L"mine"));
    ASSERT_TRUE(insert(other, L"another's"));
    ASSERT_TRUE(db.exec(L"UPDATE t SET x = 1 WHERE v = 'mine'"));
    EXPECT_EQ(one(db, L"SELECT max(id) FROM t"), L"3");
    ASSERT_TRUE(db.exec(L"DELETE FROM t WHERE id = 3"));
    EXPECT_EQ(one(db, L"SELECT max(id) FROM t"), L"4") << "its row is gone";
    ASSERT_TRUE(db.end_transaction());

    std::atomic<int> wrong = 0;
    const auto work = [&](odbc_database& one_, const std::wstring& name) {
        for (int i = 0; i < 100; ++i) {
            const bool done = one_.begin_transaction() && insert(one_, name);
            const auto id = one(one_, L"SELECT max(id) FROM t");
            if (!done || one(one_, L"SELECT v FROM t WHERE id = " + id) != name
                || !one_.end_transaction())
                ++wrong;
        }
    };
    std::thread second([&] { work(other, L"b"); });
    work(db, L"a");
    second.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(one(L"SELECT count(*) FROM t WHERE v = 'a' OR v = 'b'"), L"200");
}

// A connection that waits for a lock holds no other one of the program up.
TEST_F(ServerDriverTest, waitsAlone) {
    ASSERT_TRUE(db.begin_transaction());
    ASSERT_EQ(one(L"SELECT max(id) FROM t"), L"");
    std::atomic<bool> isDone = false;
    std::thread second([&] { isDone = insert(other, L"second"); });
    const auto waiting = [&] {
        return one(L"SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock' AND "
                   L"datname = current_database()");
    };
    for (int tries = 0; tries < 500 && waiting() != L"1"; ++tries)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(waiting(), L"1");
    EXPECT_TRUE(insert(L"first"));
    EXPECT_TRUE(db.end_transaction());
    second.join();
    EXPECT_TRUE(isDone);
    EXPECT_EQ(all(), L"first,second");
}

// A range of keys is taken above the largest one: nobody else may insert until it is written.
TEST_F(ServerDriverTest, aRangeOfKeysIsTakenAlone) {
    for (const wchar_t* table : {L"interval_data", L"point_data"})
        ASSERT_TRUE(
            db.exec(sql(L"CREATE TABLE ", table, L" (obj_id ", db.primary_key(), L", top REAL)")));
    ASSERT_TRUE(db.exec(L"INSERT INTO interval_data (top) VALUES (1)"));
    ASSERT_TRUE(other.exec(L"SET lock_timeout = '200ms'"));
    ASSERT_TRUE(db.begin_transaction());
    EXPECT_EQ(one(L"SELECT max(obj_id) FROM interval_data"), L"1");
    EXPECT_FALSE(other.exec(L"INSERT INTO interval_data (top) VALUES (2)"));
    EXPECT_NE(other.last_error().find(L"held the rows or the table"), std::wstring::npos);
    EXPECT_EQ(one(other, L"SELECT count(*) FROM interval_data"), L"1") << "readers do not wait";
    ASSERT_TRUE(db.exec(L"INSERT INTO interval_data (obj_id, top) VALUES (2, 2),(3, 3)"));
    EXPECT_EQ(db.affected_rows(), 2);
    ASSERT_TRUE(db.exec(L"INSERT INTO interval_data (top) VALUES (4)")) << "behind the given keys";
    EXPECT_EQ(one(L"SELECT max(obj_id) FROM interval_data"), L"4");
    ASSERT_TRUE(db.exec(L"INSERT INTO interval_data (obj_id, top) VALUES (5, 5)"));
    ASSERT_TRUE(db.end_transaction());
    ASSERT_TRUE(other.exec(L"INSERT INTO interval_data (top) VALUES (6)"));
    EXPECT_EQ(one(other, L"SELECT max(obj_id) FROM interval_data"), L"6");

    ASSERT_TRUE(db.exec(L"INSERT INTO t (id, v) VALUES (10, 'copied')"));
    ASSERT_TRUE(db.keys_were_given(L"t", L"id"));
    ASSERT_TRUE(insert(L"next"));
    EXPECT_EQ(one(L"SELECT max(id) FROM t"), L"11");
    for (const wchar_t* table : {L"interval_data", L"point_data"})
        EXPECT_TRUE(db.exec(sql(L"DROP TABLE ", table)));
}

TEST_F(ServerDriverTest, stampsTimeInUtc) {
    ASSERT_TRUE(db.exec(L"SET TimeZone = 'Asia/Novosibirsk'"));
    odbc_database local;
    ASSERT_TRUE(local.connect(":memory:"));
    const auto now = [](odbc_database& from) { return one(from, L"SELECT " + from.cur_time()); };
    const auto before = now(local);
    const auto there = now(db);
    EXPECT_LE(before, there);
    EXPECT_LE(there, now(local));
    EXPECT_EQ(db.get_user(), one(L"SELECT session_user"));
}

} // namespace

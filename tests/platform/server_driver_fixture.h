// Two connections to one database of the test server, with a table of texts, numbers and keys.
#pragma once

#include "odbc_database.h"
#include "platform/sql_text.h"
#include "tests/platform/test_server.h"

#include <gtest/gtest.h>

#include <string>

class ServerDriverTest : public testing::Test {
protected:
    void SetUp() override {
        if (!test_server::isNamed())
            GTEST_SKIP() << "WELLDB_TEST_SERVER names no server";
        auto& server = test_server::instance();
        ASSERT_TRUE(server.isReady()) << server.error();
        ASSERT_TRUE(db.connect(server.string()));
        ASSERT_TRUE(other.connect(server.string()));
        ASSERT_TRUE(
            db.exec(L"CREATE TABLE t (id " + db.primary_key() + L", v TEXT, x REAL, n BIGINT)"));
    }
    void TearDown() override {
        odbc_database last;
        if (test_server::isNamed() && last.connect(test_server::instance().string()))
            static_cast<void>(last.exec(L"DROP TABLE t"));
    }

    static std::wstring one(odbc_database& from, const std::wstring& query) {
        const auto rows = from.query(query);
        if (!rows)
            return L"(refused) " + from.last_error();
        return rows->next() ? rows->get_text(0) : L"(no row)";
    }
    std::wstring one(const std::wstring& query) { return one(db, query); }
    static bool insert(odbc_database& into, const std::wstring& value) {
        return into.exec(sqlText::sql(L"INSERT INTO t (v) VALUES (", sqlText::quoted(value), L")"));
    }
    bool insert(const std::wstring& value) { return insert(db, value); }
    std::wstring all() { return one(L"SELECT string_agg(v, ',' ORDER BY id) FROM t"); }

    odbc_database db;
    odbc_database other;
};

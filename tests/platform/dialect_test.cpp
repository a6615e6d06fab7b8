#include "platform/bulk_insert.h"
#include "platform/connection_pairs.h"
#include "platform/postgres_dialect.h"

#include <gtest/gtest.h>

namespace {

using postgresDialect::shape;

struct change {
    const char* where;
    const char* before;
    const char* after; // null: unchanged
};

TEST(DialectTest, changesWhatTheServerUnderstandsOtherwise) {
    const change cases[] = {
        {"count without an argument", "SELECT count() FROM t", "SELECT count(*) FROM t"},
        {"a number from a text",
         "SELECT a FROM t WHERE CAST( replace(v ,',','.') as REAL) > 1",
         "SELECT a FROM t WHERE wellsql.num(( replace(v ,',','.') )::text) > 1"},
        {"numeric", "SELECT cast(v AS numeric)", "SELECT wellsql.num((v )::text)"},
        {"another cast", "SELECT cast(pr_id as text) FROM t", nullptr},
        {"types of columns, not their names",
         "CREATE TABLE t (text TEXT, real REAL NOT NULL, depth_abs REAL)",
         "CREATE TABLE t (text TEXT COLLATE \"C\", real DOUBLE PRECISION NOT NULL, "
         "depth_abs DOUBLE PRECISION)"},
        {"a column added",
         "ALTER TABLE t ADD text TEXT",
         "ALTER TABLE t ADD text TEXT COLLATE \"C\""},
        {"a table renamed", "ALTER TABLE t RENAME TO u", nullptr},
        {"an empty list", "DELETE FROM t WHERE a IN()", "DELETE FROM t WHERE a = ANY('{}')"},
        {"a negated one",
         "SELECT a FROM t WHERE a NOT IN ( )",
         "SELECT a FROM t WHERE a <> ALL('{}')"},
        {"a list", "SELECT a FROM t WHERE a IN(1,2)", nullptr},
        {"a query for a table",
         "SELECT a FROM (SELECT a FROM t union all SELECT a FROM u) order by a",
         "SELECT a FROM (SELECT a FROM t union all SELECT a FROM u) AS t_ order by a NULLS FIRST"},
        {"one with a name", "SELECT a FROM (SELECT a FROM t) q WHERE a = 1", nullptr},
        {"a backslash in a pattern",
         "SELECT a FROM t WHERE b LIKE '%a\\b%' AND c = 1",
         "SELECT a FROM t WHERE b LIKE '%a\\b%' ESCAPE '' AND c = 1"},
        {"a pattern without one", "SELECT a FROM t WHERE b NOT LIKE '%50%'", nullptr},
        {"a pattern that is computed",
         "SELECT a FROM t WHERE (b LIKE '%' || t.c || '%')",
         "SELECT a FROM t WHERE (b LIKE '%' || t.c || '%' ESCAPE '')"},
        {"an escape that is named", "SELECT a FROM t WHERE b LIKE 'a\\%' ESCAPE '\\'", nullptr},
        {"without case",
         "SELECT a FROM t WHERE lower(b) LIKE lower('%Ж\\%')",
         "SELECT a FROM t WHERE wellsql.lower(b) LIKE wellsql.lower('%Ж\\%') ESCAPE ''"},
        {"order",
         "SELECT a FROM t ORDER BY a, b desc, lower(c) ASC LIMIT 1",
         "SELECT a FROM t ORDER BY a NULLS FIRST, b desc NULLS LAST, wellsql.lower(c) ASC NULLS "
         "FIRST LIMIT 1"},
        {"order inside",
         "SELECT a FROM t WHERE b = (SELECT max(c) FROM u ORDER BY c) ORDER BY f(a, b)",
         "SELECT a FROM t WHERE b = (SELECT max(c) FROM u ORDER BY c NULLS FIRST) ORDER BY "
         "f(a, b) NULLS FIRST"},
        {"order that is told", "SELECT a FROM t ORDER BY a NULLS LAST", nullptr},
        {"distinct rows by a constant",
         "SELECT distinct(field) FROM t WHERE work_object = 'A' ORDER BY work_object, field",
         "SELECT distinct(field) FROM t WHERE work_object = 'A' ORDER BY field NULLS FIRST"},
        {"by what they hold",
         "SELECT distinct(a), b FROM t WHERE a = 'A' ORDER BY a, b",
         "SELECT distinct(a), b FROM t WHERE a = 'A' ORDER BY a NULLS FIRST, b NULLS FIRST"},
        {"the key of attached files",
         "UPDATE file_link SET path = 'rowid' WHERE rowid = 1",
         "UPDATE file_link SET path = 'rowid' WHERE id = 1"},
        {"a reserved name",
         "INSERT INTO log_table (user, action) VALUES ('user', '1')",
         "INSERT INTO log_table (\"user\", action) VALUES ('user', '1')"},
        {"no depth yet",
         "UPDATE well_base SET bottom = '', name = '' WHERE bottom = ''",
         "UPDATE well_base SET bottom = NULL, name = '' WHERE bottom = ''"},
        {"a comment hides nothing", "SELECT a -- ; count()\nFROM t /* count() */", nullptr},
        {"quoted names", "SELECT \"count()\" FROM \"IN()\"", nullptr},
    };
    for (const auto& [where, before, after] : cases)
        EXPECT_EQ(postgresDialect::adapt(before).text, after != nullptr ? after : before) << where;
}

TEST(DialectTest, neverTouchesALiteral) {
    for (const char* text : {"count()",
                             "x ORDER BY y",
                             "IN()",
                             "a''b count() ''",
                             "LIKE ''%''",
                             "; DELETE",
                             "--",
                             "/*"}) {
        const std::string rows = std::string("INSERT INTO t (a) VALUES ('") + text + "')";
        const std::string query = std::string("SELECT a FROM t WHERE a = '") + text + "'";
        EXPECT_EQ(postgresDialect::adapt(rows).text, rows);
        EXPECT_EQ(postgresDialect::adapt(query).text, query);
        EXPECT_EQ(postgresDialect::adapt(query).is, shape::statement);
    }
}

TEST(BulkInsertTest, makesArraysOfPlainRowsOnly) {
    const bulkInsert::columnTypes types = {
        {"id", "integer"}, {"x", "double precision"}, {"v", "text"}};
    const std::string head = "INSERT INTO t (id, x, V) ";
    const std::pair<std::string, std::string> cases[] = {
        {"VALUES (1, 2.5, 'a'),(-2, 3e5, NULL)",
         "SELECT * FROM unnest('{1,-2}'::integer[],'{2.5,3e5}'::double precision[],'{\"a\",NULL}'::text[])"},
        {"VALUES (1, '2', 'O''Brien \\ \"q\" {,}'), (NULL, 1, 'NULL')",
         "SELECT * FROM unnest('{1,NULL}'::integer[],'{\"2\",1}'::double precision[],'{\"O''Brien \\\\ \\\"q\\\" {,}\",\"NULL\"}'::text[])"},
        {"VALUES (1, 2, '')",
         "SELECT * FROM unnest('{1}'::integer[],'{2}'::double precision[],'{\"\"}'::text[])"},
        // rounded, or spelled, by the server; expressions; rows of another length; an open literal
        {"VALUES (1.5, 2, 'a')", ""},
        {"VALUES (1, 2, 7.50)", ""},
        {"VALUES (1, 2, lower('a'))", ""},
        {"VALUES (1, 2 + 3, 'a')", ""},
        {"VALUES (1-2, 2, 'a')", ""},
        {"VALUES (1, 2)", ""},
        {"VALUES (1, 2, 'a', 4)", ""},
        {"VALUES (1, 2, 'a') ON CONFLICT DO NOTHING", ""},
        {"VALUES (1, 2, 'a", ""},
        {"VALUES", ""},
        {"SELECT 1, 2, 'a'", ""},
    };
    for (const auto& [rows, expected] : cases)
        EXPECT_EQ(bulkInsert::asArrays(head + rows, "id, x, V", types).value_or(""),
                  expected.empty() ? "" : head + expected)
            << rows;
    EXPECT_FALSE(bulkInsert::asArrays("INSERT INTO t (no) VALUES (1)", "no", types));
}

TEST(DialectTest, tellsOneStatementFromSeveral) {
    const struct {
        const char* text;
        shape is;
    } cases[] = {
        {"SELECT 1; ", shape::statement},
        {"SELECT 1; -- and no more", shape::statement},
        {"INSERT INTO t (a) VALUES (';');", shape::statement},
        {"INSERT INTO t (a) VALUES ('a'); DELETE FROM t WHERE a IN (1)", shape::several},
        {"SELECT 1; SELECT 2", shape::several},
        {"", shape::empty},
        {" -- nothing", shape::empty},
        {"PRAGMA cache_size=50000", shape::pragma},
    };
    for (const auto& [text, is] : cases)
        EXPECT_EQ(postgresDialect::adapt(text).is, is) << text;
    EXPECT_EQ(postgresDialect::adapt("INSERT INTO t (a) VALUES ('b'); ").text,
              "INSERT INTO t (a) VALUES ('b')");
}

TEST(DialectTest, knowsWhatConcernsKeys) {
    const auto rows = postgresDialect::insertionOf("INSERT INTO Val(f_id, obj_id) VALUES (1,2)");
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->table, "val");
    EXPECT_TRUE(rows->names("OBJ_ID"));
    EXPECT_FALSE(rows->names("id")) << "a part of a name";
    EXPECT_FALSE(postgresDialect::insertionOf("INSERT INTO t (a) SELECT b FROM u")->hasRows);
    EXPECT_FALSE(postgresDialect::insertionOf("UPDATE t SET a = 1"));
    EXPECT_EQ(postgresDialect::deletionOf("DELETE FROM Val WHERE 1=1"), "val");

    const auto key = postgresDialect::largestKeyOf("SELECT max(W_id) FROM well_base");
    ASSERT_TRUE(key);
    EXPECT_EQ(key->table + "." + key->key, "well_base.w_id");
    for (const char* other : {"SELECT max(a) FROM t WHERE b = 1",
                              "SELECT max(a), b FROM t",
                              "SELECT max(a + 1) FROM t",
                              "SELECT max(a) FROM t, u",
                              "SELECT min(a) FROM t"})
        EXPECT_FALSE(postgresDialect::largestKeyOf(other)) << other;
}

TEST(ConnectionPairsTest, takesAnyPassword) {
    const struct {
        const char* text;
        const char* password;
    } cases[] = {
        {"Server=a;UID=me;PWD=t{e}s;t %1;", "t{e}s;t %1"},
        {"UID=me;PWD={t{e}}s;t %1};", "t{e}s;t %1"}, // the same, quoted
        {"UID=me;PWD={abc};", "{abc}"},              // nothing there that needed the braces
        {"UID=me;PWD=xPWD=y;", "xPWD=y"},
        {"UID=me;PWD={x;PWD=y};", "x;PWD=y"},
        {"UID=me;PWD= ;;", " ;"},
        {"PWD=a", "a"},
    };
    for (const auto& [text, password] : cases) {
        const auto pairs = connectionPairs::parse(text);
        ASSERT_NE(connectionPairs::find(pairs, "pwd"), nullptr) << text;
        EXPECT_EQ(*connectionPairs::find(pairs, "pwd"), password) << text;
    }
}

TEST(ConnectionPairsTest, quotesWhatNeedsIt) {
    const auto pairs = connectionPairs::parse(
        " Driver = {PostgreSQL Unicode};;Server=10.0.0.1;word;Name={a;}}b};PWD=c}d;");
    ASSERT_EQ(pairs.size(), 4U);
    EXPECT_EQ(connectionPairs::join(pairs),
              "Driver={PostgreSQL Unicode};Server=10.0.0.1;Name={a;}}b};PWD={c}}d};");
    EXPECT_TRUE(connectionPairs::parse("").empty());
}

} // namespace

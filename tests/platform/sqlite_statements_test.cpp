#include "platform/numbers.h"
#include "platform/sqlite_statements.h"

#include "odbc_database.h"

#include <gtest/gtest.h>

namespace {

// The shape, and the literals with a bar behind each.
std::string splitText(std::string_view text) {
    const auto parts = sqliteShape::split(text);
    if (!parts)
        return "alone";
    std::string out = (parts->isWhole ? "" : "(literals) ") + parts->shape + " ";
    for (const auto& value : parts->literals) {
        if (const auto* whole = std::get_if<std::int64_t>(&value))
            out += std::to_string(*whole) + "|";
        else if (const auto* real = std::get_if<double>(&value))
            out += "real " + numbers::fixed(*real, 6) + "|";
        else
            out += "'" + std::get<std::string>(value) + "'|";
    }
    return out;
}

TEST(SqliteShape, onlyValuesAreTakenOut) {
    const std::pair<const char*, const char*> cases[] = {
        {"INSERT INTO t (a, b2) VALUES ('x''y', -5, 1.5e3, NULL, f('q'))",
         "INSERT INTO t (a, b2) VALUES (?, ?, ?, NULL, f(?)) 'x'y'|-5|real 1500.000000|'q'|"},
        {"UPDATE t SET a = '', b = +7 WHERE id=12",
         "UPDATE t SET a = ?, b = ? WHERE id=? ''|7|12|"},
        {"SELECT a FROM t WHERE a = 'x' AND b >= 2.5",
         "SELECT a FROM t WHERE a = ? AND b >= ? 'x'|real 2.500000|"},
        // a limit, columns to order by, names, hexadecimals, numbers out of range
        {"SELECT a FROM t ORDER BY 1, 2 LIMIT 3",
         "(literals) SELECT a FROM t ORDER BY 1, 2 LIMIT 3 "},
        {"SELECT 'a', x1 FROM t", "(literals) SELECT 'a', x1 FROM t "},
        {"SELECT a FROM t WHERE b = 0x10", "(literals) SELECT a FROM t WHERE b = 0x10 "},
        {"DELETE FROM t WHERE b = 99999999999999999999",
         "(literals) DELETE FROM t WHERE b = 99999999999999999999 "},
        {"INSERT INTO t (a) SELECT a FROM u WHERE b = 5 ORDER BY c, 2",
         "(literals) INSERT INTO t (a) SELECT a FROM u WHERE b = ? ORDER BY c, 2 5|"},
        {"SAVEPOINT level_1", "SAVEPOINT level_1 "},
        {"SELECT a FROM t WHERE b = x'00'", "alone"},
        {"SELECT a FROM t WHERE b = ?", "alone"},
        {"SELECT \"it's\" FROM t", "alone"},
        {"SELECT a -- it's\nFROM t", "alone"},
        {"SELECT a /* ' */ FROM t", "alone"},
        {"INSERT INTO t (a) VALUES ('x", "alone"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(splitText(text), expected);
}

// What a statement does must not depend on whether one of its shape was run before.
TEST(SqliteShape, valuesKeepTheirTypes) {
    odbc_database db;
    ASSERT_TRUE(db.connect(":memory:"));
    ASSERT_TRUE(db.exec(L"CREATE TABLE t (i INTEGER, r REAL, s VARCHAR(10), n)"));
    for (const wchar_t* value : {L"7", L"'7'", L"7.5", L"'7.50'", L"-0.0", L"1e300", L"'x'"}) {
        const std::wstring list =
            std::wstring(L"(") + value + L", " + value + L", " + value + L", " + value + L")";
        ASSERT_TRUE(db.exec(L"DELETE FROM t"));
        ASSERT_TRUE(db.exec(L"INSERT INTO t (i, r, s, n) VALUES " + list));
        ASSERT_TRUE(db.exec(L"INSERT INTO t (i, r, s, n) VALUES " + list + L" -- as it stands"));
        const auto rows =
            db.query(L"SELECT quote(i) || quote(r) || quote(s) || quote(n) || typeof(n) FROM t");
        ASSERT_TRUE(rows && rows->next());
        const std::wstring bound = rows->get_text(0);
        ASSERT_TRUE(rows->next());
        EXPECT_EQ(bound, rows->get_text(0)) << "the same statement, not split";
    }
}

TEST(SqliteShape, aStatementInUseIsNotUsedTwice) {
    odbc_database db;
    ASSERT_TRUE(db.connect(":memory:"));
    ASSERT_TRUE(db.exec(L"CREATE TABLE t (a INTEGER)"));
    for (const wchar_t* row : {L"1", L"2", L"3"})
        ASSERT_TRUE(db.exec(std::wstring(L"INSERT INTO t (a) VALUES (") + row + L")"));
    std::int64_t pairs = 0;
    const auto outer = db.query(L"SELECT a FROM t");
    while (outer && outer->next())
        for (const auto inner = db.query(L"SELECT a FROM t"); inner && inner->next();)
            pairs += outer->get_counter(0) * inner->get_counter(0);
    EXPECT_EQ(pairs, 36);
    const auto kept = db.query(L"SELECT a FROM t WHERE a = 2");
    db.disconnect();
    EXPECT_TRUE(kept && kept->next()) << "rows outlive the connection";
}

} // namespace

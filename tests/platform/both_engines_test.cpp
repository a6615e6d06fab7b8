#include "platform/files.h"
#include "tests/platform/test_server.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

constexpr std::string_view forms = WELLDB_SOURCE_DIR "/tests/platform/statement_forms.sql";

struct outcome {
    bool isDone = false;
    std::vector<std::string> rows; // or how many rows a change found
    std::string error;
};

// A NULL is told from an empty text by its spelling, except where the form says that it is not.
std::string rowOf(const sql_cursor& cursor, bool hasNulls) {
    std::string out;
    for (int column = 0; column < cursor.columnCount(); ++column)
        out += cursor.isNull(column) && hasNulls ? "NULL "
                                                 : "'" + std::string(cursor.text(column)) + "' ";
    return out;
}

outcome run(sql_driver& driver, std::string statement, bool hasNulls) {
    if (const auto at = statement.find("{KEY}"); at != std::string::npos)
        statement.replace(at, 5, driver.primaryKey());
    outcome out;
    if (statement.starts_with("SELECT ") || statement.starts_with("select ")) {
        const auto cursor = driver.query(statement);
        out.isDone = cursor != nullptr;
        while (cursor && cursor->next())
            out.rows.push_back(rowOf(*cursor, hasNulls));
    } else {
        out.isDone = driver.exec(statement);
        const std::string_view verb = std::string_view(statement).substr(0, 6);
        if (verb == "INSERT" || verb == "UPDATE" || verb == "DELETE")
            out.rows.push_back(out.isDone ? std::to_string(driver.affectedRows()) : "-");
    }
    out.error = out.isDone ? "" : driver.error();
    return out;
}

struct form {
    std::string statement;
    bool isUnordered = false;
    bool isRefused = false;
    bool hasNulls = true;
};

std::vector<form> readForms() {
    std::vector<form> out;
    const auto file = files::openRead(files::wide(std::filesystem::path(forms)));
    std::string text(1 << 18, '\0');
    text.resize(file ? std::fread(text.data(), 1, text.size(), file.get()) : 0);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string line = text.substr(at, end - at);
        at = end + 1;
        if (line.empty() || line.starts_with("--"))
            continue;
        const char mark = line.front();
        if (mark == '~' || mark == '!' || mark == '=')
            line.erase(0, 2);
        out.push_back({std::move(line), mark == '~', mark == '!', mark != '='});
    }
    return out;
}

// One text serves both engines, whose rows and counts are the same.
TEST(BothEngines, answerTheSame) {
    if (!test_server::isNamed())
        GTEST_SKIP() << "WELLDB_TEST_SERVER names no server";
    auto& server = test_server::instance();
    ASSERT_TRUE(server.isReady()) << server.error();
    const auto local = makeDriver(":memory:");
    const std::string name = "welldb_forms_" + std::to_string(getpid());
    ASSERT_TRUE(server.admin().exec("CREATE DATABASE " + name + " TEMPLATE template0"));
    const std::string string = test_server::stringOf(name);
    const auto remote = makeDriver(string);
    ASSERT_TRUE(local->connect(":memory:") && local->exec("PRAGMA case_sensitive_like=ON"));
    ASSERT_TRUE(remote->connect(string)) << remote->error();
    const auto all = readForms();
    ASSERT_GT(all.size(), 140U);
    for (const auto& [statement, isUnordered, isRefused, hasNulls] : all) {
        outcome here = run(*local, statement, hasNulls);
        outcome there = run(*remote, statement, hasNulls);
        if (isUnordered) {
            std::ranges::sort(here.rows);
            std::ranges::sort(there.rows);
        }
        EXPECT_EQ(here.isDone, !isRefused) << statement << "\n" << here.error;
        EXPECT_EQ(there.isDone, !isRefused) << statement << "\n" << there.error;
        EXPECT_EQ(here.rows, there.rows) << statement;
    }
    EXPECT_TRUE(server.admin().exec("DROP DATABASE " + name + " WITH (FORCE)"));
}

} // namespace

// Lets the N-th statement of a container's connection fail.
//
// A fixture has `failing::statements faults;` as a member, so that it is there before SetUp()
// opens the container; inside a single test, reopen() the container after making one.
#pragma once

#include "platform/driver_choice.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace failing {

enum class kind {
    writes, // what may fail on the way to a commit: statements, levels, the commit itself
    queries,
};

// What the drivers of one `statements` share.
struct plan {
    bool isArmed = false;
    kind what = kind::writes;
    int left = 0;      // calls of the kind until the one that fails
    std::string fault; // what failed; empty so far

    bool fails(kind called, std::string_view call) {
        if (!isArmed || called != what || !fault.empty() || --left > 0)
            return false;
        fault = call;
        return true;
    }
};

class driver final : public sql_driver {
public:
    driver(std::unique_ptr<sql_driver> engine, std::shared_ptr<plan> shared)
        : m_engine(std::move(engine)), m_plan(std::move(shared)) {}

    // The action journal may fail at any time without failing the operation: it is no part of it.
    bool connect(const std::string& connectionString) override {
        if (connectionString.ends_with("journal.db"))
            m_plan = std::make_shared<plan>();
        return m_engine->connect(connectionString);
    }
    bool isServer() const override { return m_engine->isServer(); }
    bool exec(std::string_view statement) override {
        return !fails(kind::writes, statement) && m_engine->exec(statement);
    }
    std::int64_t affectedRows() const override { return m_engine->affectedRows(); }
    std::unique_ptr<sql_cursor> query(std::string_view statement) override {
        return fails(kind::queries, statement) ? nullptr : m_engine->query(statement);
    }
    bool begin() override { return !fails(kind::writes, "BEGIN") && m_engine->begin(); }
    bool commit() override { return !fails(kind::writes, "COMMIT") && m_engine->commit(); }
    bool rollback() override { return m_engine->rollback(); }
    bool savepoint(int level) override {
        return !fails(kind::writes, "SAVEPOINT") && m_engine->savepoint(level);
    }
    bool release(int level) override {
        return !fails(kind::writes, "RELEASE") && m_engine->release(level);
    }
    bool rollbackTo(int level) override { return m_engine->rollbackTo(level); }
    bool backup(const std::string& path) override {
        return !fails(kind::writes, "backup") && m_engine->backup(path);
    }
    bool keysWereGiven(const std::string& table, const std::string& key) override {
        return !fails(kind::writes, "keysWereGiven") && m_engine->keysWereGiven(table, key);
    }
    std::string primaryKey() const override { return m_engine->primaryKey(); }
    std::string currentTime() const override { return m_engine->currentTime(); }
    std::string user() const override { return m_engine->user(); }
    bool wasStatementWrong() const override {
        return m_plan->fault.empty() && m_engine->wasStatementWrong();
    }
    std::string error() const override {
        return m_plan->fault.empty() ? m_engine->error() : "made to fail: " + m_plan->fault;
    }

private:
    bool fails(kind called, std::string_view call) { return m_plan->fails(called, call); }

    std::unique_ptr<sql_driver> m_engine;
    std::shared_ptr<plan> m_plan;
};

// Stands behind every connection that is opened in its life.
class statements {
public:
    statements() {
        setDriverWrapper([shared = m_plan](std::unique_ptr<sql_driver> engine) {
            return std::make_unique<driver>(std::move(engine), shared);
        });
    }
    ~statements() { setDriverWrapper({}); }
    statements(const statements&) = delete;
    statements& operator=(const statements&) = delete;

    // The n-th call of the kind from now on fails, once; 1 is the next one.
    void failAt(int n, kind what = kind::writes) { *m_plan = {true, what, n, {}}; }
    void stop() { m_plan->isArmed = false; }
    [[nodiscard]] const std::string& fault() const { return m_plan->fault; }

private:
    std::shared_ptr<plan> m_plan = std::make_shared<plan>();
};

} // namespace failing

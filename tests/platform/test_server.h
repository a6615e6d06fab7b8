// A database of the test program's own on the server that the environment names.
#pragma once

#include "platform/connection_pairs.h"
#include "platform/driver_choice.h"

#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

// Made on first use, dropped when the program ends.
class test_server {
public:
    static test_server& instance() {
        static test_server server;
        return server;
    }
    ~test_server() {
        if (m_isMade)
            static_cast<void>(m_admin->exec("DROP DATABASE " + m_name + " WITH (FORCE)"));
    }
    test_server(const test_server&) = delete;
    test_server& operator=(const test_server&) = delete;

    static bool isNamed() { return !setting("WELLDB_TEST_SERVER").empty(); }
    [[nodiscard]] bool isReady() const { return m_isMade; }
    [[nodiscard]] std::string error() const { return m_admin->error(); }
    [[nodiscard]] const std::string& name() const { return m_name; }

    // As a description makes it: the password as it is, without quotes.
    [[nodiscard]] std::string string() const { return stringOf(m_name); }
    static std::string stringOf(const std::string& database,
                                const std::string& user = setting("WELLDB_TEST_USER"),
                                const std::string& password = setting("WELLDB_TEST_PASSWORD")) {
        return setting("WELLDB_TEST_SERVER") + "Database=" + database + ";UID=" + user
               + ";PWD=" + password + ";";
    }
    sql_driver& admin() { return *m_admin; }

private:
    test_server() : m_admin(makeDriver("Server=;")) {
        m_name = "welldb_test_" + std::to_string(getpid());
        m_isMade = m_admin->connect(stringOf("postgres"))
                   && m_admin->exec("CREATE DATABASE " + m_name + " TEMPLATE template0");
    }
    static std::string setting(const char* name) {
        const char* value = std::getenv(name);
        return value == nullptr ? std::string() : std::string(value);
    }

    std::unique_ptr<sql_driver> m_admin;
    std::string m_name;
    bool m_isMade = false;
};

// The engine that a test's container lies on: a local file, or with WELLDB_TEST_ENGINE=server a
// database of its own on the server that WELLDB_TEST_SERVER, _USER and _PASSWORD name.
#pragma once

#include "odbc_database.h"
#include "platform/files.h"
#include "tests/support/temp_folder.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace testEngine {

inline std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

inline bool isServer() {
    return variable("WELLDB_TEST_ENGINE") == "server";
}

// A test of a server that is not there is skipped, and says so.
inline bool isMissing() {
    return isServer() && variable("WELLDB_TEST_SERVER").empty();
}

// For what only a local file has: its bytes, its locks, its engine's own statements.
#define SKIP_ON_SERVER()                                                                           \
    if (testEngine::isServer())                                                                    \
    GTEST_SKIP() << "of local files only"

// The connection string of a database of the server.
inline std::string connectionTo(const std::string& database) {
    return variable("WELLDB_TEST_SERVER") + "Database=" + database + ";UID="
           + variable("WELLDB_TEST_USER") + ";PWD=" + variable("WELLDB_TEST_PASSWORD") + ";";
}

// Databases on the server for the length of one test.
class databases {
public:
    databases() = default;
    ~databases() {
        for (const auto& name : m_made)
            run(L"DROP DATABASE IF EXISTS " + name + L" WITH (FORCE)");
    }
    databases(const databases&) = delete;
    databases& operator=(const databases&) = delete;

    // A new empty one; its name.
    std::wstring make() {
        static int count = 0;
        m_made.push_back(L"welldb_test_" + std::to_wstring(getpid()) + L"_"
                         + std::to_wstring(++count));
        run(L"CREATE DATABASE " + m_made.back() + L" TEMPLATE template0");
        return m_made.back();
    }

    // The bytes of a description file of one, with its files in `fileFolder`.
    static std::string descriptionOf(const std::wstring& name, const std::wstring& fileFolder) {
        return "[TESSARO_welldb_Server_Description]\nfileFolder="
               + files::native(fileFolder).native() + "\nUID=" + variable("WELLDB_TEST_USER")
               + "\nPWD=" + variable("WELLDB_TEST_PASSWORD")
               + "\nDatabase=" + variable("WELLDB_TEST_SERVER")
               + "Database=" + std::string(name.begin(), name.end()) + "\n";
    }

private:
    static void run(const std::wstring& statement) {
        odbc_database db;
        if (!db.connect(connectionTo("postgres")) || !db.exec(statement))
            std::fprintf(stderr, "%ls: %ls\n", statement.c_str(), db.last_error().c_str());
    }
    std::vector<std::wstring> m_made;
};

} // namespace testEngine

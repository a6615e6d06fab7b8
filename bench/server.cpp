#include "bench/server.h"

#include "bench/child.h"

#include "odbc_database.h"
#include "platform/strconv.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace bench::server {

namespace {

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string pair(const std::string& name) {
    const std::string all = variable("WELLDB_TEST_SERVER");
    const auto from = all.find(name + "=");
    return from == std::string::npos
               ? std::string()
               : all.substr(from + name.size() + 1, all.find(';', from) - from - name.size() - 1);
}

bool administer(const std::string& statement) {
    odbc_database db;
    const bool done = db.connect(variable("WELLDB_TEST_SERVER")
                                 + "Database=postgres;UID=" + variable("WELLDB_TEST_USER")
                                 + ";PWD=" + variable("WELLDB_TEST_PASSWORD") + ";")
                      && db.exec(ts::strconv::fromUtf8(statement));
    if (!done)
        std::fprintf(stderr, "%ls\n", db.last_error().c_str());
    return done;
}

} // namespace

bool isThere() {
    return !variable("WELLDB_TEST_SERVER").empty();
}

bool describe(const std::string& path, const std::string& database) {
    drop(database);
    if (!administer("CREATE DATABASE " + database + " TEMPLATE template0"))
        return false;
    std::ofstream file(path);
    file << "[TESSARO_welldb_Server_Description]\nfileFolder=" << path
         << ".files/\nUID=" << variable("WELLDB_TEST_USER")
         << "\nPWD=" << variable("WELLDB_TEST_PASSWORD")
         << "\nDatabase=" << variable("WELLDB_TEST_SERVER") << "Database=" << database << "\n";
    return file.good();
}

void drop(const std::string& database) {
    static_cast<void>(administer("DROP DATABASE IF EXISTS " + database + " WITH (FORCE)"));
}

double copyIn(const std::string& database, const std::vector<table>& tables) {
    setenv("PGPASSWORD", variable("WELLDB_TEST_PASSWORD").c_str(), 1);
    std::string command = "psql -q -1 -v ON_ERROR_STOP=1 -h " + pair("Server") + " -p "
                          + pair("Port") + " -U " + variable("WELLDB_TEST_USER") + " " + database;
    for (const auto& one : tables)
        command += " -c \"\\copy " + one.name + " from '" + one.file + "'\"";
    int status = 1;
    const double time = timed([&] { status = std::system(command.c_str()); });
    return status == 0 ? time : -1.0;
}

} // namespace bench::server

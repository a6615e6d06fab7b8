// The server that WELLDB_TEST_SERVER names, for the measures that need one.
#pragma once

#include <string>
#include <vector>

namespace bench::server {

[[nodiscard]] bool isThere();

// A new empty database, and a description file of it at `path` with its files beside it. Drops what
// was there under the name.
[[nodiscard]] bool describe(const std::string& path, const std::string& database);
void drop(const std::string& database);

// Loads text files (tabs between the values, "\N" for NULL) by the server's own bulk command, in
// one transaction. Seconds; negative when it failed.
struct table {
    std::string name; // with its columns: "val (f_id, value, obj_id)"
    std::string file;
};
[[nodiscard]] double copyIn(const std::string& database, const std::vector<table>& tables);

} // namespace bench::server

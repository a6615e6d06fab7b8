// The log-plot layouts that a container is given: "*.pt" files in the folder "planshet" of its file
// directory, each with a row of its name in the table `planshet_template`.
#pragma once

#include <string>

class odbc_database;

namespace plotTemplates {

// The folder below a container's file directory; empty for a container without one.
[[nodiscard]] std::wstring folder(const std::wstring& fileDirectory);

// Copies the layouts shipped with the program. One that is there already under its name stays as
// it is: it may hold the user's own work.
[[nodiscard]] bool install(odbc_database& db);

} // namespace plotTemplates

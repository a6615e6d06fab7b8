// Where the data shipped with the program lie.
#pragma once

#include <string>

// The folder of shipped data, ending in a separator: that of the environment variable
// WELLDB_DATA, else the one beside the library, else the installed one, else the build tree's.
// Holds "planshet" and "strategraphy".
[[nodiscard]] std::wstring ts_options_get_main_module_path();

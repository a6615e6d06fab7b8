// The steps that bring a container of an older version to the current one.
#pragma once

#include <span>

class odbc_database;

namespace upgrade {

// A step is run on a container whose version is below `below`. It answers false when data could not
// be carried over. Each may be run on what it has made.
struct step {
    int below;
    bool (*run)(odbc_database& db);
};

[[nodiscard]] std::span<const step> steps(); // in their order

} // namespace upgrade

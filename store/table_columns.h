// The columns of a table, from the text that creates it.
#pragma once

#include "store/schema.h"

#include <string>
#include <vector>

namespace schema {

struct column {
    std::wstring name;
    bool isText = false; // else a number
};

// In the table's order; a key that the database assigns is the first.
[[nodiscard]] std::vector<column> columnsOf(const table& made);

// "a, b, c"
[[nodiscard]] std::wstring columnList(const std::vector<column>& columns);

} // namespace schema

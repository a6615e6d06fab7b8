// What a check of a whole container finds.
#pragma once

#include <cstdint>
#include <string>

struct NORLEX_checkFinding {
    std::wstring kind;      // "orphan rows", "no sample file", "duplicate well", …
    std::wstring place;     // a table, or the file directory
    std::int64_t count = 0; // rows or files
    std::wstring example;   // the first of them
    bool repairable =
        false; // a repair removes them: nothing refers to them, nothing can reach them
};

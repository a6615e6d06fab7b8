// Which columns of a table hold the depths and fields of a property, and what came of its rows.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// Columns are counted from 1; 0: there is none. Points take their depth from `depth` and
// `depthAbs`, intervals from the other four. A cell that is empty is an unknown depth.
struct NORLEX_tableColumns {
    int depth = 0; // measured
    int depthAbs = 0;
    int top = 0;
    int bot = 0;
    int topAbs = 0;
    int botAbs = 0;
    std::vector<std::pair<std::wstring, int>> fields; // name, column; fields not named stay empty
};

struct NORLEX_tableOptions {
    bool hasHeader = true;         // the first row holds no data
    bool keepGoodRows = false;     // false: one bad row leaves nothing written
    bool skipWithoutDepth = false; // rows whose depth cells are all empty are passed over
};

// A row that was not taken.
struct NORLEX_tableRowError {
    std::uint64_t row = 0; // from 1, a header counted
    std::uint64_t line = 0;
    std::wstring reason;
};

struct NORLEX_tableReport {
    static constexpr std::size_t longestList = 1000;

    std::uint64_t rows = 0; // of data
    std::uint64_t taken = 0;
    std::uint64_t passedOver = 0;             // without a depth, on request
    std::uint64_t badCount = 0;               // all of them
    std::vector<NORLEX_tableRowError> errors; // the first `longestList`
};

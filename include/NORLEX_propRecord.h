// One record of a property: where its data lie along the hole.
#pragma once

#include "NORLEX_logSample.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// The kind of a border, kept with its point; 0 for a marker.
using NORLEX_borderType = int;

// A point has its depth in `top` and `topAbs`, and the same numbers in `bot` and `botAbs`.
struct NORLEX_geometryRecord {
    double top = NORLEX_unknownDepth; // measured
    double bot = NORLEX_unknownDepth;
    double topAbs = NORLEX_unknownDepth; // the larger number: absolute depths are elevations
    double botAbs = NORLEX_unknownDepth;
    std::int64_t obj_id = 0; // 0: not stored yet
    std::uint8_t flag = 0;   // border type of a point
};

// One record to be written, of many: depths as in NORLEX_geometryRecord, a value for each field in
// order. Of a point only `top` and `topAbs` are read. NORLEX_unknownDepth is completed from the
// other depth system.
struct NORLEX_bulkRow {
    double top = NORLEX_unknownDepth;
    double bot = NORLEX_unknownDepth;
    double topAbs = NORLEX_unknownDepth;
    double botAbs = NORLEX_unknownDepth;
    std::vector<std::wstring> values;
    std::size_t target = 0; // index of the property it belongs to, where there are several
};

// One layer of a section told by thicknesses, from above downwards.
struct NORLEX_thicknessRow {
    double thickness = 0.0; // greater than 0
    std::vector<std::wstring> values;
};

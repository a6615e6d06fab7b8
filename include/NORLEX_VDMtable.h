// How a table becomes a velocity-depth model.
#pragma once

#include "NORLEX_columnRef.h"
#include "NORLEX_tableColumns.h"
#include "NORLEX_vdm.h"
#include "tableReader.h"

#include <optional>

struct NORLEX_VDMtableOptions {
    // Of a table of points.
    NORLEX_columnRef depth;
    NORLEX_columnRef time;

    // Of a table of intervals, given in time or in depth, in their order from above. The
    // velocities are in m/s; a row without one is passed over.
    std::optional<NORLEX_vdmType> intervals; // none: points
    NORLEX_columnRef top;
    NORLEX_columnRef bot;
    NORLEX_columnRef velocity;

    NORLEX_VDMcreateOptions values; // what its numbers are
    tableRW::tableOptions format;
    bool hasHeader = true;
    bool keepGoodRows = false; // false: one bad row leaves the model as it was
};

// How properties are copied.
#pragma once

// The depth system that stays the same from one well to another; the other is computed with the
// survey of the destination.
enum NORLEX_dataDirection : int {
    NORLEX_dataDirectionMeasured = 0,
    NORLEX_dataDirectionAbsolute = 1,
};

// What becomes of a destination that exists.
enum NORLEX_db_prop_merge : int {
    NORLEX_db_prop_merge_replace = 0, // it is deleted first
    NORLEX_db_prop_merge_merge = 1,   // records are added to it; those that it holds already, same
                                      // depths and values, are not added again
    NORLEX_db_prop_merge_skip = 2,    // it is left as it is
};

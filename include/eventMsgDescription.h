// One announcement of a change.
#pragma once

#include "NORLEX_propDescription.h"
#include "NORLEX_wellDescription.h"

#include <array>
#include <string>

// What was changed. The values are those of the announcements' format.
namespace eventKind {
enum : int {
    well = 1,
    property = 2,
    wellMeta = 4,
    filter = 5,
    container = 6,    // all wells
    allWellsData = 7, // the data of a property, or a meta key, in all wells
    allWellsProperty = 8,
    dictionary = 9,
    zone = 10,
    templateField = 11,
    statisticTable = 12,
    correlationBorder = 13,
};
}

namespace eventAction {
enum : int { create = 1, remove = 2, rename = 3, update = 4 };
}

struct eventMsgDescription {
    int kind = 0;   // eventKind
    int action = 0; // eventAction
    std::wstring container;
    NORLEX_wellDescription well;
    NORLEX_propDescription property;
    // Names and keys of the operation, in its argument order. A renamed well leaves the new work
    // object, field and name here; `well` holds the old ones.
    std::array<std::wstring, 3> params;
    NORLEX_propDescription newProperty;
    unsigned int scope = 0; // the caller's id, where the operation takes one
};

// The kinds of property, and what may be done with each.
#pragma once

#include "NORLEX_export.h"

#include <string>

// Stored in the database by the names of the values.
enum NORLEX_dataType : int {
    NORLEX_dataTypeUnknown = 0,
    NORLEX_dataTypeMarker = 1,           // points
    NORLEX_dataTypeInterval = 2,         // intervals
    NORLEX_dataTypeColumn = 3,           // adjoining intervals
    NORLEX_dataTypeLog = 4,              // samples by depth
    NORLEX_dataTypeRastr = 5,            // images bound to depth
    NORLEX_dataTypeBorder = 6,           // correlation borders
    NORLEX_dataTypeConstruction = 7,     // drilled hole and casing
    NORLEX_dataTypeWorkConstruction = 8, // working elements
    NORLEX_dataTypeSerial = 9,           // series of values
    NORLEX_dataTypeVDMInterval = 10,     // interval velocity
    NORLEX_dataTypeVDMAvg = 11,          // average velocity
};

// The stored name; empty for a value outside 1 … 11.
[[nodiscard]] NORLEX_API std::wstring getDataTypeEnum(NORLEX_dataType type);

// Exact match of a stored name. "NORLEX_dataTypeLitology" is an older name of the column;
// "NORLEX_dataTypeStratigraphy" and anything else are unknown.
[[nodiscard]] NORLEX_API NORLEX_dataType getDataTypeByEnum(const std::wstring& storedName);

// The display name in the current language, and the type that bears one.
[[nodiscard]] NORLEX_API std::wstring getDataNameByEnum(NORLEX_dataType type);
[[nodiscard]] NORLEX_API NORLEX_dataType getDataEnumByName(const std::wstring& displayName);

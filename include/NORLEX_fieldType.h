// The kinds of field that a property may carry.
#pragma once

#include "NORLEX_export.h"

#include <string>

// Stored in the database by the names of the values.
enum NORLEX_fieldType : int {
    NORLEX_fieldTypeUnknown = 0,
    NORLEX_fieldTypeString = 1,
    NORLEX_fieldTypeBigstring = 2,
    NORLEX_fieldTypeNumeric = 3,
    NORLEX_fieldTypeLink = 4,   // refers to a dictionary entry
    NORLEX_fieldTypeVsegei = 5, // formatted geological index
    NORLEX_fieldTypeBoolean = 6,
};

// "NORLEX_fieldTypeUnknown" for a value outside 1 … 6.
[[nodiscard]] NORLEX_API std::wstring fieldType_getBaseEnum(NORLEX_fieldType type);

// Exact match of one of the six stored names; anything else is unknown.
[[nodiscard]] NORLEX_API NORLEX_fieldType fieldType_getType(const std::wstring& storedName);

// The display name in the current language.
[[nodiscard]] NORLEX_API std::wstring fieldType_getUIName(NORLEX_fieldType type);

// The field type of the host's tables: 1 string, 2 real, 3 boolean.
[[nodiscard]] NORLEX_API int fieldType_getDSType(NORLEX_fieldType type);

// One field of a property template.
#pragma once

#include "NORLEX_fieldType.h"

#include <cstdint>
#include <string>

struct NORLEX_fieldDescr {
    std::wstring name;       // unique within the template; the display name
    std::wstring short_name; // at most ten characters, for exports with short columns
    NORLEX_fieldType type = NORLEX_fieldTypeString;
    int ds_type = 1;         // see fieldType_getDSType
    std::int32_t width = 10; // characters
    std::int32_t prec = 2;   // decimals of a numeric field
};

#include "NORLEX_dataType.h"

#include "platform/string_table.h"

#include <array>
#include <string_view>

namespace {

struct kind {
    NORLEX_dataType type;
    std::wstring_view storedName;
    unsigned int displayText;
};

constexpr std::array<kind, 11> kinds = {{
    {NORLEX_dataTypeMarker, L"NORLEX_dataTypeMarker", 1},
    {NORLEX_dataTypeInterval, L"NORLEX_dataTypeInterval", 2},
    {NORLEX_dataTypeColumn, L"NORLEX_dataTypeColumn", 3},
    {NORLEX_dataTypeLog, L"NORLEX_dataTypeLog", 4},
    {NORLEX_dataTypeRastr, L"NORLEX_dataTypeRastr", 7},
    {NORLEX_dataTypeBorder, L"NORLEX_dataTypeBorder", 8},
    {NORLEX_dataTypeConstruction, L"NORLEX_dataTypeConstruction", 9},
    {NORLEX_dataTypeWorkConstruction, L"NORLEX_dataTypeWorkConstruction", 10},
    {NORLEX_dataTypeSerial, L"NORLEX_dataTypeSerial", 11},
    {NORLEX_dataTypeVDMInterval, L"NORLEX_dataTypeVDMInterval", 431},
    {NORLEX_dataTypeVDMAvg, L"NORLEX_dataTypeVDMAvg", 435},
}};

// Lithology columns were a kind of their own once; stratigraphy columns, too, but their name is
// told by the container's upgrade alone.
constexpr std::wstring_view lithology = L"NORLEX_dataTypeLitology";

} // namespace

std::wstring getDataTypeEnum(NORLEX_dataType type) {
    for (const kind& k : kinds)
        if (k.type == type)
            return std::wstring(k.storedName);
    return {};
}

NORLEX_dataType getDataTypeByEnum(const std::wstring& storedName) {
    if (storedName == lithology)
        return NORLEX_dataTypeColumn;
    for (const kind& k : kinds)
        if (k.storedName == storedName)
            return k.type;
    return NORLEX_dataTypeUnknown;
}

std::wstring getDataNameByEnum(NORLEX_dataType type) {
    for (const kind& k : kinds)
        if (k.type == type)
            return stringTable::text(k.displayText);
    return {};
}

NORLEX_dataType getDataEnumByName(const std::wstring& displayName) {
    for (const kind& k : kinds)
        if (!displayName.empty() && stringTable::text(k.displayText) == displayName)
            return k.type;
    return NORLEX_dataTypeUnknown;
}

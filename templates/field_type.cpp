#include "NORLEX_fieldType.h"

#include "platform/string_table.h"

#include <array>
#include <string_view>

namespace {

// Field types of the host's tables.
enum : int { dsString = 1, dsReal = 2, dsBoolean = 3 };

struct kind {
    std::wstring_view storedName;
    unsigned int displayText;
    int dsType;
};

// By value.
constexpr std::array<kind, 7> kinds = {{
    {L"NORLEX_fieldTypeUnknown", 34, dsString},
    {L"NORLEX_fieldTypeString", 30, dsString},
    {L"NORLEX_fieldTypeBigstring", 31, dsString},
    {L"NORLEX_fieldTypeNumeric", 32, dsReal},
    {L"NORLEX_fieldTypeLink", 33, dsString},
    {L"NORLEX_fieldTypeVsegei", 35, dsString},
    {L"NORLEX_fieldTypeBoolean", 36, dsBoolean},
}};

const kind& kindOf(NORLEX_fieldType type) {
    const auto value = static_cast<std::size_t>(type); // a negative one is large
    return kinds[value < kinds.size() ? value : 0];
}

} // namespace

std::wstring fieldType_getBaseEnum(NORLEX_fieldType type) {
    return std::wstring(kindOf(type).storedName);
}

NORLEX_fieldType fieldType_getType(const std::wstring& storedName) {
    for (std::size_t i = 1; i < kinds.size(); ++i)
        if (kinds[i].storedName == storedName)
            return static_cast<NORLEX_fieldType>(i);
    return NORLEX_fieldTypeUnknown;
}

std::wstring fieldType_getUIName(NORLEX_fieldType type) {
    return stringTable::text(kindOf(type).displayText);
}

int fieldType_getDSType(NORLEX_fieldType type) {
    return kindOf(type).dsType;
}

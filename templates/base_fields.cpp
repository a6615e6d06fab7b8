// The fields of the standard templates: NORLEX_propTemplate::getBaseFldListForType.
#include "NORLEX_propTemplate.h"
#include "platform/string_table.h"

#include <span>

namespace {

// Names and short names are texts of the string table.
struct baseField {
    unsigned int name;
    unsigned int shortName;
    NORLEX_fieldType type;
    std::int32_t width;
    std::int32_t prec;
};

enum : unsigned int {
    name = 40,
    description = 41,
    value = 43,
    group = 53,
    diameter = 54,
    casedFrom = 55,
    casedTo = 56,
    casingDiameter = 57,
    elementType = 58,
    innerDiameter = 59,
    outerDiameter = 60,
    comment = 61,
};

enum : unsigned int {
    shortName = 2033,
    shortDescription = 2034,
    shortValue = 2035,
    shortGroup = 2036,
    shortDiameter = 2037,
    shortCasedFrom = 2038,
    shortCasedTo = 2039,
    shortCasing = 2040,
    shortComment = 2041,
    shortElement = 2042,
    shortInner = 2043,
    shortOuter = 2044,
};

constexpr baseField geology[] = {
    {name, shortName, NORLEX_fieldTypeString, 20, 0},
    {description, shortDescription, NORLEX_fieldTypeBigstring, 50, 0},
};
constexpr baseField single[] = {
    {value, shortValue, NORLEX_fieldTypeNumeric, 10, 2},
};
constexpr baseField border[] = {
    {name, shortName, NORLEX_fieldTypeString, 20, 0},
    {group, shortGroup, NORLEX_fieldTypeString, 20, 0},
};
constexpr baseField construction[] = {
    {diameter, shortDiameter, NORLEX_fieldTypeNumeric, 10, 2},
    {casedFrom, shortCasedFrom, NORLEX_fieldTypeNumeric, 10, 2},
    {casedTo, shortCasedTo, NORLEX_fieldTypeNumeric, 10, 2},
    {casingDiameter, shortCasing, NORLEX_fieldTypeNumeric, 10, 2},
    {comment, shortComment, NORLEX_fieldTypeString, 50, 0},
};
constexpr baseField workConstruction[] = {
    {elementType, shortElement, NORLEX_fieldTypeBigstring, 20, 0},
    {innerDiameter, shortInner, NORLEX_fieldTypeNumeric, 10, 2},
    {outerDiameter, shortOuter, NORLEX_fieldTypeNumeric, 10, 2},
    {comment, shortComment, NORLEX_fieldTypeString, 50, 0},
};

std::span<const baseField> fieldsOf(NORLEX_dataType type) {
    switch (type) {
    case NORLEX_dataTypeMarker:
    case NORLEX_dataTypeInterval:
    case NORLEX_dataTypeColumn:
        return geology;
    case NORLEX_dataTypeLog:
    case NORLEX_dataTypeSerial:
    case NORLEX_dataTypeVDMInterval:
    case NORLEX_dataTypeVDMAvg:
        return single;
    case NORLEX_dataTypeBorder:
        return border;
    case NORLEX_dataTypeConstruction:
        return construction;
    case NORLEX_dataTypeWorkConstruction:
        return workConstruction;
    case NORLEX_dataTypeRastr:
    case NORLEX_dataTypeUnknown:
        break;
    }
    return {};
}

} // namespace

void NORLEX_propTemplate::getBaseFldListForType(NORLEX_dataType type,
                                                std::vector<NORLEX_fieldDescr>& fields) {
    fields.clear();
    for (const baseField& f : fieldsOf(type))
        fields.push_back({stringTable::text(f.name),
                          stringTable::text(f.shortName),
                          f.type,
                          fieldType_getDSType(f.type),
                          f.width,
                          f.prec});
}

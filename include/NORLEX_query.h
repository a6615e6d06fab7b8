// One condition on a well.
#pragma once

#include "NORLEX_export.h"
#include "NORLEX_filterKinds.h"
#include "NORLEX_propDescription.h"

#include <string>

// Which members matter depends on the type; the others are kept as they are.
struct NORLEX_API NORLEX_query {
    NORLEX_filterType operationType = NORLEX_filterTypeProperty;
    NORLEX_filterOperation operation = NORLEX_filterExists;

    NORLEX_propDescription prop; // the property tested
    std::wstring templateName;   // of NORLEX_filterTypeTemplate
    std::wstring fldName;        // field of the property, or key of a metadata or passport entry
    std::wstring value;          // compared with; of NORLEX_filterTypeTime "YYYY-MM-DD HH:MM:SS"
    bool caseSensetive = true;   // of NORLEX_filterTypeValue
    double fromDepth = 0.0;      // the depth window, absolute depths in metres
    double toDepth = 0.0;
    std::wstring propSearchName;  // kept for the host, not evaluated: a property, its field and
    std::wstring propSearchGroup; // a value to search by
    std::wstring searchFld;
    std::wstring searchValue;
    int propTemplateType = 0; // a NORLEX_dataType: properties of any template of that type
    NORLEX_filterWellType wellInfoType = NORLEX_filterWellCoordinates;
    int datetimeType = 0;   // 0 creation, 1 last change
    int datetimeObject = 0; // 0 the well, 1 a property: `prop`, or any where it has no name

    bool isLinkAnd = true; // joined to what stands before it by "and", not "or"

    // What the query asks, for people: the names of its type and operation, and its operands.
    [[nodiscard]] std::wstring getName() const;
};

[[nodiscard]] NORLEX_API bool operator==(const NORLEX_query& a, const NORLEX_query& b);

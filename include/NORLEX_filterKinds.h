// What a selection's queries and a data filter's conditions may test, and by which comparison.
#pragma once

#include "NORLEX_export.h"

#include <string>

// What a query of a selection tests. Stored in selection files by number.
enum NORLEX_filterType : int {
    NORLEX_filterTypeProperty = 1, // the well has a property of this name
    NORLEX_filterTypeValue = 2,    // a value of a property's field
    NORLEX_filterTypeMeta = 3,     // a metadata entry of the well, by key
    NORLEX_filterTypeGeometry = 4, // the well is among those picked on a map
    NORLEX_filterTypePassport = 5, // an entry of the well passport, by key
    NORLEX_filterTypeWellInfo = 6, // the well has data of a kind, see NORLEX_filterWellType
    NORLEX_filterTypeWindow = 7,   // a property has data inside a depth window
    NORLEX_filterTypeTemplate = 8, // the well has a property of a template
    NORLEX_filterTypeTime = 9,     // when the well or a property was created or changed
};

// How a value is compared. Stored in selection and filter files by number.
enum NORLEX_filterOperation : int {
    NORLEX_filterExists = 1,
    NORLEX_filterNotExists = 2,
    NORLEX_filterEmpty = 3,
    NORLEX_filterNotEmpty = 4,
    NORLEX_filterEqual = 5,
    NORLEX_filterNotEqual = 6,
    NORLEX_filterGreater = 7, // this and the next three compare numbers
    NORLEX_filterGreaterEqual = 8,
    NORLEX_filterLess = 9,
    NORLEX_filterLessEqual = 10,
    NORLEX_filterContains = 11,
    NORLEX_filterNotContains = 12,
    NORLEX_filterBeginsWith = 13,
    NORLEX_filterEndsWith = 14,
};

// The kinds of data that NORLEX_filterTypeWellInfo looks for.
enum NORLEX_filterWellType : int {
    NORLEX_filterWellCoordinates = 1,
    NORLEX_filterWellAltitude = 2,
    NORLEX_filterWellData = 3, // a property of any kind
    NORLEX_filterWellSurvey = 4,
    NORLEX_filterWellConstruction = 5,
    NORLEX_filterWellElements = 6, // working elements
    NORLEX_filterWellDrilling = 7, // the drilling journal
    NORLEX_filterWellDocuments = 8,
    NORLEX_filterWellPassport = 9,
    NORLEX_filterWellVelocity = 10, // the velocity model
    NORLEX_filterWellLogs = 11,
};

// The display texts in the current language; empty for a number that is none of them, and for the
// passport as a kind of data.
[[nodiscard]] NORLEX_API std::wstring getFilterTypeName(NORLEX_filterType type);
[[nodiscard]] NORLEX_API std::wstring getFilterOperationName(NORLEX_filterOperation operation);
[[nodiscard]] NORLEX_API std::wstring getWellFilterTypeName(NORLEX_filterWellType type);

// The words of the selection language.
#pragma once

#include "NORLEX_dataType.h"
#include "NORLEX_filterKinds.h"

#include <array>
#include <string>
#include <string_view>

namespace selectionWords {

enum class subjectKind { property, group, templateName, type, meta, passport };

struct subject {
    std::wstring_view word;
    subjectKind type;
};
inline constexpr std::array subjects = {
    subject{L"property", subjectKind::property},
    subject{L"group", subjectKind::group},
    subject{L"template", subjectKind::templateName},
    subject{L"type", subjectKind::type},
    subject{L"meta", subjectKind::meta},
    subject{L"passport", subjectKind::passport},
};

struct wellKind {
    std::wstring_view word;
    NORLEX_filterWellType type;
};
// Of two words for one kind the first is written.
inline constexpr std::array wellData = {
    wellKind{L"coordinates", NORLEX_filterWellCoordinates},
    wellKind{L"altitude", NORLEX_filterWellAltitude},
    wellKind{L"data", NORLEX_filterWellData},
    wellKind{L"survey", NORLEX_filterWellSurvey},
    wellKind{L"construction", NORLEX_filterWellConstruction},
    wellKind{L"elements", NORLEX_filterWellElements},
    wellKind{L"drilling", NORLEX_filterWellDrilling},
    wellKind{L"documents", NORLEX_filterWellDocuments},
    wellKind{L"passport", NORLEX_filterWellPassport},
    wellKind{L"velocity", NORLEX_filterWellVelocity},
    wellKind{L"log", NORLEX_filterWellLogs},
    wellKind{L"logs", NORLEX_filterWellLogs},
};

struct dataKind {
    std::wstring_view word;
    NORLEX_dataType type;
};
inline constexpr std::array dataTypes = {
    dataKind{L"marker", NORLEX_dataTypeMarker},
    dataKind{L"interval", NORLEX_dataTypeInterval},
    dataKind{L"column", NORLEX_dataTypeColumn},
    dataKind{L"log", NORLEX_dataTypeLog},
    dataKind{L"raster", NORLEX_dataTypeRastr},
    dataKind{L"border", NORLEX_dataTypeBorder},
    dataKind{L"construction", NORLEX_dataTypeConstruction},
    dataKind{L"elements", NORLEX_dataTypeWorkConstruction},
    dataKind{L"serial", NORLEX_dataTypeSerial},
    dataKind{L"interval-velocity", NORLEX_dataTypeVDMInterval},
    dataKind{L"average-velocity", NORLEX_dataTypeVDMAvg},
};

// With commas between them.
[[nodiscard]] std::wstring dataTypeList();

} // namespace selectionWords

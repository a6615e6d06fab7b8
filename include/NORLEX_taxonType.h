// The levels of the stratigraphic chart.
#pragma once

#include "NORLEX_export.h"

#include <string>

enum NORLEX_taxonType : int {
    NORLEX_taxonUndefined = 0,
    NORLEX_taxonAkrotema = 1,
    NORLEX_taxonEonotema = 2,
    NORLEX_taxonSubEonotema = 3,
    NORLEX_taxonEratema = 4,
    NORLEX_taxonSystem = 5,
    NORLEX_taxonSubSystem = 6, // not used by the chart
    NORLEX_taxonSeries = 7,
    NORLEX_taxonSubSeries = 8,
    NORLEX_taxonStage = 9,
};

// The display text in the current language; empty for a number that is none of them.
[[nodiscard]] NORLEX_API std::wstring getTaxonTypeName(NORLEX_taxonType type);

// Which well a LAS file belongs to, and where its header puts the well.
#pragma once

#include "NORLEX_lasImport.h"
#include "NORLEX_wellDescription.h"
#include "exchange/exact_notes.h"

#include <optional>
#include <string>

namespace lasImportWell {

// Work object and field of the options; the field, else, of the entry FLD. The name is of the first
// source of the options, or else of the entry WELL, UWI or API or the stem of the file's name, that
// is left with a character once what a name cannot hold (apostrophes, control characters, blanks at
// its ends) is taken off; empty when no source of the options is. Names that the file's own notes
// give come first, a name from sources of the options aside.
[[nodiscard]] NORLEX_wellDescription describe(const NORLEX_lasfileExt& file,
                                              const std::wstring& path,
                                              const NORLEX_lasImportOptions& options,
                                              const exactNotes::notes& notes);

struct position {
    double x = 0.0;
    double y = 0.0;
};

// Coordinates as written, from the first pair of entries that are both numbers: XCOORD and YCOORD,
// X and Y, EASTING and NORTHING, their like, then longitude and latitude in decimal degrees. The ~W
// block comes before the ~P block; a value equal to the file's null value is none.
[[nodiscard]] std::optional<position> positionOf(const NORLEX_lasfileExt& file);

// Elevation of the depth reference in metres, from the first entry that is a number in metres or
// feet: EREF, then kelly bushing, drill floor, an unspecified elevation, and the ground last.
[[nodiscard]] std::optional<double> altitudeOf(const NORLEX_lasfileExt& file);

// Metres a unit of length holds: 0.3048 for F, FT and FEET, in any case of letters and within
// brackets, 1 for metres and for no unit. Nothing for any other.
[[nodiscard]] std::optional<double> metresIn(const std::wstring& unit);

} // namespace lasImportWell

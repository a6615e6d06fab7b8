// How the properties of a template are drawn.
//
// Kept as text in the database: the kind, then its parameters, "curve;color=#ff0000;width=2". The
// kinds are curve, fill, bars, symbols, labels and image; an empty text leaves the choice to the
// program that draws. The parameters are that program's own. A ";", "=" or "%" inside a name or a
// value is written "%3B", "%3D", "%25".
#pragma once

#include <map>
#include <string>

enum NORLEX_drawType : int {
    NORLEX_drawTypeDefault = 0,
    NORLEX_drawTypeCurve = 1,   // a line through the values
    NORLEX_drawTypeFill = 2,    // areas in colours or patterns
    NORLEX_drawTypeBars = 3,    // a bar a value
    NORLEX_drawTypeSymbols = 4, // a sign a point
    NORLEX_drawTypeLabels = 5,  // values as text
    NORLEX_drawTypeImage = 6,
};

using NORLEX_drawParams = std::map<std::wstring, std::wstring>;

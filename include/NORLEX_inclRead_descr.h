// How a table or a LAS file holds a directional survey.
#pragma once

#include "NORLEX_columnRef.h"
#include "tableReader.h"

// Dip is measured from the horizontal.
enum class NORLEX_inclAngle : int {
    inclination, // from the vertical, 0 downwards, 90 level
    dipDown,     // positive below the horizontal: 90 straight down
    dipUp,       // negative below the horizontal: -90 straight down
};

enum class NORLEX_inclDepthUnit : int {
    metres,
    feet,   // of 0.3048 m
    ofFile, // LAS: as the depth column says; tables: metres
};

// Columns of a table by number or header text, curves of a LAS file by mnemonic (its depth is the
// depth column unless a curve is named). Angles are decimal degrees, with a point or a comma, or
// degrees, minutes and seconds: "45 30", "45°30'15\"", "45:30". An azimuth may be a quadrant
// bearing too: "N45E", "S 10 30 W", "E", with С, Ю, В, З for the same.
struct NORLEX_inclRead_descr {
    NORLEX_columnRef depth;
    NORLEX_columnRef angle;
    NORLEX_columnRef azimuth;
    NORLEX_inclAngle angleKind = NORLEX_inclAngle::inclination;
    NORLEX_inclDepthUnit depthUnit = NORLEX_inclDepthUnit::ofFile;
    double azimuthCorrection = 0.0; // degrees added: declination, grid convergence
    bool hasHeader = true;          // of a table
    bool keepGoodRows = false;      // false: one bad row leaves the survey as it was
};

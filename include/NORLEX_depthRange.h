// The extent of a property in both depth systems.
#pragma once

// The absolute top is the larger number: absolute depths are elevations.
struct NORLEX_depthRange {
    double top = 0.0; // measured
    double bot = 0.0;
    double topAbs = 0.0;
    double botAbs = 0.0;
};

// A point of two doubles.
#pragma once

struct Tts_vtx_d2 {
    double x = 0.0;
    double y = 0.0;
};

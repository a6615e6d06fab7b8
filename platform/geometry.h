// Angles.
#pragma once

#include "Tts_vtx_d2.h"

#include <numbers>

[[nodiscard]] inline double ts_grd2rad(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

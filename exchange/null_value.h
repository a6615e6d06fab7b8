// What counts as "no value" in a LAS file.
#pragma once

#include <cmath>

namespace nullValue {

// A number closer to the file's null value than this stands for no value.
inline constexpr double tolerance = 0.00001;

[[nodiscard]] inline bool is(double value, double null) {
    return !std::isfinite(value) || std::abs(value - null) < tolerance;
}

} // namespace nullValue

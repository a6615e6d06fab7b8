// Angles and bearings of survey tables as people write them.
#pragma once

#include <optional>
#include <string>

namespace surveyAngles {

// Degrees, decimal or with minutes and seconds behind "°", "'", """, ":" or blanks; minutes and
// seconds below 60. Nothing when the text is none, or not finite.
[[nodiscard]] std::optional<double> degrees(std::wstring_view text);

// Clockwise from north, 0 to below 360: degrees of any sign, or a quadrant bearing such as "N45E",
// whose angle is 0 to 90, or one of the letters alone. Letters are N, S, E, W and С, Ю, В, З.
[[nodiscard]] std::optional<double> azimuth(std::wstring_view text);

// Within 0 to below 360.
[[nodiscard]] double turned(double degrees);

} // namespace surveyAngles

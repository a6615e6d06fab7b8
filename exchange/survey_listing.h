// Reads survey listings: text in which a directional survey stands between ruled header lines.
//
//     Well 12-A
//     ==============================
//     MD ANGLE AZIMUTH TVD
//     ==============================
//     0.00 0.25 118.40 0.00
//     25.00 0.50 121.10 25.00
//     ==============================
//     closure 0.16
//
// The data lie between the second and the third line that holds a "=", or the end of the file.
// Depth, angle and azimuth are a line's first three fields; what follows them is not looked at.
// Blanks separate fields. Columns are often padded, so a run of blanks counts as one wherever that
// leaves three fields; where it does not, each blank ends a field, and two in a row enclose an
// empty one, which is no number. A tab ends none.
#pragma once

#include "NORLEX_inclinometry.h"

#include <string>
#include <vector>

namespace surveyListing {

// The encoding is detected. A line of fewer than three fields, or whose depth is not a finite
// number with a decimal point, is left out; "12,5" and "12.5m" are none. An angle or azimuth that
// is none keeps the value of the line accepted before, 0 on the first. False, with `stations` as
// they were, when the file cannot be read or holds fewer than two stations.
[[nodiscard]] bool read(const std::wstring& path, std::vector<inclData>& stations);

} // namespace surveyListing

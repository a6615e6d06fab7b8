// The logs that the curves of a LAS file become.
#pragma once

#include "NORLEX_lasfileExt.h"
#include "NORLEX_propDescription.h"
#include "exchange/exact_notes.h"
#include "store/metadata.h"

#include <string>
#include <vector>

namespace lasImportLogs {

enum class what { create, replace, leave };

struct target {
    NORLEX_propDescription description;
    what action = what::create;
};

// One a curve, in the file's order. The name is the curve's, or what the file's own notes say, as
// a log can bear it; of a curve without one "CURVE_n". Names differ in more than case within a
// file, since files are made of them.
[[nodiscard]] std::vector<target>
targets(const NORLEX_lasfileExt& file, const std::wstring& group, const exactNotes::notes& notes);

// Metres in one unit of the file's depths: of the depth column, else of STRT; 1 for a unit that is
// no length.
[[nodiscard]] double metresInDepth(const NORLEX_lasfileExt& file);

// What is the same for all logs: the null value, the depth unit, the ~W and the ~P block.
[[nodiscard]] metadata::pairs commonAttributes(const NORLEX_lasfileExt& file);
[[nodiscard]] metadata::pairs attributesOf(const NORLEX_lasCurve& curve,
                                           const metadata::pairs& common);

} // namespace lasImportLogs

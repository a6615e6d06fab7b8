// The logs that the curves of a LAS file become.
#pragma once

#include "NORLEX_lasfileExt.h"
#include "NORLEX_propDescription.h"
#include "exchange/exact_notes.h"
#include "store/metadata.h"

#include <cstdint>
#include <string>
#include <vector>

class curveTypes;
class odbc_database;

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

// What only one log has: its unit, its type where the catalogue knows it, and its entry of the ~C
// block.
[[nodiscard]] metadata::pairs ownAttributes(const NORLEX_lasCurve& curve, const curveTypes& types);

// Gives logs of a well that were just created what is the same for all of them: the null value, the
// depth unit, the ~W and the ~P block. A header is spelled into a statement once and copied from
// row to row, however many curves a file has. The logs are those made since `before` was the
// largest key of the table; the transaction keeps others out.
[[nodiscard]] bool addCommonAttributes(odbc_database& db,
                                       std::uint32_t wellId,
                                       std::int64_t before,
                                       const NORLEX_lasfileExt& file);
[[nodiscard]] std::int64_t largestLogKey(odbc_database& db);

} // namespace lasImportLogs

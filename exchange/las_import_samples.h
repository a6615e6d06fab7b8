// The samples of a LAS file as they are stored: sorted, in metres, with both depths.
#pragma once

#include "NORLEX_lasImport.h"
#include "exchange/exact_notes.h"

#include <cstdint>
#include <cstdio>
#include <span>
#include <utility>
#include <vector>

class NORLEX_inclinometry;

namespace lasImportSamples {

// The depth column, computed once for all curves.
struct depth_column {
    std::vector<std::uint32_t> rows; // the file's row of each sample; empty: in its own order
    std::vector<double> depths;      // measured, metres, never falling
    std::vector<double> depthsAbs;
    std::uint64_t skipped = 0; // rows of the file without a depth
    std::uint32_t firstSkipped = 0;
};

// `metres` is what one unit of the file's depths holds. A row whose depth is not finite is left
// out. The absolute depths stay empty.
[[nodiscard]] depth_column sorted(std::span<const Tts_vtx_d2> points, double metres);

void addAbsolute(depth_column& column, NORLEX_inclinometry& survey);

// Writes the sample files of curves, of several at a time where several threads ask it to.
class sample_writer {
public:
    sample_writer(depth_column column, bool nullsAreNoSamples)
        : m_column(std::move(column)), m_nullsAreNoSamples(nullsAreNoSamples) {}

    // `missing` are the nulls that are samples where nulls are none.
    [[nodiscard]] bool
    write(std::FILE* file, const NORLEX_lasCurve& curve, exactNotes::row_ranges missing) const;

private:
    [[nodiscard]] bool
    writeOwn(std::FILE* file, std::vector<double> values, exactNotes::row_ranges missing) const;

    depth_column m_column;
    bool m_nullsAreNoSamples;
};

} // namespace lasImportSamples

#include "derived/simplify.h"

#include "derived/range_hulls.h"
#include "derived/sample_order.h"

#include <algorithm>
#include <cstddef>
#include <utility>

using sampleOrder::isMissing;

namespace simplify {

namespace {

void addPiece(std::span<const NORLEX_logSample> piece,
              double tolerance,
              std::vector<NORLEX_logSample>& out) {
    const rangeHulls hulls(piece);
    std::vector<std::pair<std::size_t, std::size_t>> open = {{0, piece.size() - 1}};
    out.push_back(piece.front());
    while (!open.empty()) { // the uppermost last, so that what is kept comes in order
        const auto [upper, lower] = open.back();
        open.pop_back();
        const auto farthest = hulls.between(upper, lower);
        if (farthest.distance > tolerance) {
            open.emplace_back(farthest.index, lower);
            open.emplace_back(upper, farthest.index);
        } else if (lower > upper)
            out.push_back(piece[lower]);
    }
}

// Where the piece, or the row of missing samples, that begins at `first` ends.
std::size_t endOf(std::span<const NORLEX_logSample> samples, std::size_t first) {
    const bool missing = isMissing(samples[first].value);
    std::size_t end = first + 1;
    while (end < samples.size() && isMissing(samples[end].value) == missing
           && (missing || samples[end].depth > samples[end - 1].depth))
        ++end;
    return end;
}

} // namespace

std::vector<NORLEX_logSample> simplified(std::span<const NORLEX_logSample> samples,
                                         double tolerance) {
    std::vector<NORLEX_logSample> out;
    for (std::size_t first = 0; first < samples.size();) {
        const std::size_t end = endOf(samples, first);
        if (!isMissing(samples[first].value))
            addPiece(samples.subspan(first, end - first), tolerance, out);
        else {
            out.push_back(samples[first]);
            if (end - first > 1)
                out.push_back(samples[end - 1]);
        }
        first = end;
    }
    return out;
}

} // namespace simplify

#include "derived/straight_line.h"

#include "derived/sample_order.h"

#include <cmath>

using sampleOrder::isMissing;

namespace straightLine {

double at(double depth, const NORLEX_logSample& upper, const NORLEX_logSample& lower) {
    const double between = lower.depth - upper.depth;
    const double share = between > 0.0 ? (depth - upper.depth) / between : 0.0;
    return std::lerp(upper.value, lower.value, share);
}

double reader::valueAt(double depth) {
    while (m_at < m_samples.size() && m_samples[m_at].depth < depth - sampleOrder::sameDepth)
        ++m_at;
    if (m_at == m_samples.size())
        return NORLEX_missingValue;
    const auto& lower = m_samples[m_at];
    if (lower.depth <= depth + sampleOrder::sameDepth)
        return lower.value;
    if (m_at == 0 || isMissing(lower.value) || isMissing(m_samples[m_at - 1].value))
        return NORLEX_missingValue;
    return at(depth, m_samples[m_at - 1], lower);
}

} // namespace straightLine

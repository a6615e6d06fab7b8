#include "exchange/las_wrapping.h"

#include "platform/numbers.h"

#include <cmath>
#include <utility>

namespace {

std::wstring wideNumber(double value) {
    const std::string text = numbers::shortest(value);
    return {text.begin(), text.end()};
}

} // namespace

las_wrapping::las_wrapping(std::size_t width,
                           double depthStep,
                           stepTaken taken,
                           lineSkipped skipped)
    : m_width(width), m_depthStep(depthStep), m_taken(std::move(taken)),
      m_skipped(std::move(skipped)) {}

void las_wrapping::take(std::uint64_t line, std::span<const double> fields) {
    const std::size_t count = fields.size();
    if (count == 0)
        return;
    settleHeld(count);
    if (m_values.empty())
        return begin(line, fields);
    if (count == m_width || (count == 1 && isNextDepth(fields.front()))) {
        giveUp();
        return begin(line, fields);
    }
    if (m_values.size() + count <= m_width)
        return add(line, fields);
    giveUp();
    // Where the depth shares its line, a line as long as the first of a step may be one.
    if (m_depthAlone == false && !m_pattern.empty() && count == m_pattern.front())
        begin(line, fields);
}

void las_wrapping::finish() {
    settleHeld(1);
    if (!m_values.empty())
        giveUp();
}

bool las_wrapping::isFull() const {
    return m_values.size() == m_width;
}

bool las_wrapping::isAsBefore() const {
    return m_counts == m_pattern;
}

// Whether a line of one field, inside a step, is the depth of the next.
bool las_wrapping::isNextDepth(double field) const {
    if (m_depthAlone != true)
        return false;
    const std::size_t index = m_counts.size();
    if (!m_pattern.empty()) {
        const bool hadOne = index < m_pattern.size() && m_pattern[index] == 1;
        return !hadOne && continuesDepths(field);
    }
    // The first step: lines of one field may be its layout, and one that fills it is held.
    return m_counts.back() > 1 && m_values.size() + 1 < m_width && continuesDepths(field);
}

// Only the next step counts: behind a gap, a depth is told by the lines around it.
bool las_wrapping::continuesDepths(double depth) const {
    const double steps = (depth - m_values.front()) / m_depthStep;
    return steps > 0.5 && steps < 1.5; // false for what is no number, and for a step of 0
}

// A step filled by a line of one field is complete when the next line is a depth; else that one
// field was the depth, and the next line holds its values.
void las_wrapping::settleHeld(std::size_t nextCount) {
    if (!m_held)
        return;
    m_held = false;
    if (nextCount == 1 || nextCount == m_width)
        return complete();
    const double depth = m_values.back();
    const std::uint64_t line = m_lastLine;
    m_values.pop_back();
    giveUp();
    begin(line, {&depth, 1});
}

void las_wrapping::begin(std::uint64_t line, std::span<const double> fields) {
    const std::size_t count = fields.size();
    if (count > m_width)
        return m_skipped(line,
                         std::to_wstring(count) + L" fields, a depth step has "
                             + std::to_wstring(m_width));
    if (m_depthAlone == true && count != 1 && count != m_width)
        return m_skipped(line, L"it continues no depth step");
    if (!m_depthAlone)
        m_depthAlone = count == 1;
    m_firstLine = line;
    m_values.clear();
    m_counts.clear();
    add(line, fields);
}

void las_wrapping::add(std::uint64_t line, std::span<const double> fields) {
    m_values.insert(m_values.end(), fields.begin(), fields.end());
    m_counts.push_back(fields.size());
    m_lastLine = line;
    if (!isFull())
        return;
    m_held = m_depthAlone == true && fields.size() == 1 && m_counts.size() > 1 && !isAsBefore();
    if (!m_held)
        complete();
}

void las_wrapping::complete() {
    const double depth = m_values.front();
    if (m_lastDepth && depth != *m_lastDepth && !std::isnan(depth))
        m_depthStep = depth - *m_lastDepth;
    if (!std::isnan(depth))
        m_lastDepth = depth;
    m_taken(m_firstLine, m_values);
    m_depthAlone = m_counts.front() == 1;
    m_pattern = std::move(m_counts);
    m_values.clear();
    m_counts.clear();
}

void las_wrapping::giveUp() {
    const std::wstring depth =
        std::isnan(m_values.front()) ? L"a depth step" : L"depth " + wideNumber(m_values.front());
    m_skipped(m_firstLine,
              depth + L" has " + std::to_wstring(m_values.size() - 1) + L" of "
                  + std::to_wstring(m_width - 1) + L" values");
    m_values.clear();
    m_counts.clear();
}

#include "NORLEX_lasCurve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {
// More than this is taken as the samples arrive: the number may come from a file's header.
constexpr std::size_t mostReserved = std::size_t{1} << 16;
} // namespace

NORLEX_lasCurve::NORLEX_lasCurve(std::wstring name, std::size_t pointsToReserve)
    : m_name(std::move(name)), m_minimum(std::numeric_limits<double>::max()),
      m_maximum(std::numeric_limits<double>::lowest()) {
    m_points.reserve(std::min(pointsToReserve, mostReserved));
}

void NORLEX_lasCurve::addPoint(const Tts_vtx_d2& point) {
    m_points.push_back(point);
}

Tts_vtx_d2 NORLEX_lasCurve::getPointByIndex(std::size_t index) const {
    return index < m_points.size() ? m_points[index] : Tts_vtx_d2{};
}

std::size_t NORLEX_lasCurve::getPointsCount() const {
    return m_points.size();
}

std::span<const Tts_vtx_d2> NORLEX_lasCurve::getPoints() const {
    return m_points;
}

const std::wstring& NORLEX_lasCurve::getName() const {
    return m_name;
}

const std::wstring& NORLEX_lasCurve::getUnits() const {
    return m_units;
}

void NORLEX_lasCurve::setUnits(const std::wstring& units) {
    m_units = units;
}

const std::wstring& NORLEX_lasCurve::getComment() const {
    return m_comment;
}

void NORLEX_lasCurve::setComment(const std::wstring& comment) {
    m_comment = comment;
}

void NORLEX_lasCurve::addCurveDesc(const std::wstring& mnemonic,
                                   const std::wstring& unit,
                                   const std::wstring& value,
                                   const std::wstring& description) {
    m_descriptions.push_back({mnemonic, unit, value, description});
}

std::size_t NORLEX_lasCurve::getCurvesCount() const {
    return m_descriptions.size();
}

lasDescription NORLEX_lasCurve::getCurveDescByIndex(std::size_t index) const {
    return index < m_descriptions.size() ? m_descriptions[index] : lasDescription{};
}

void NORLEX_lasCurve::calcStatistic(bool recount) {
    if (recount) {
        m_minimum = std::numeric_limits<double>::max();
        m_maximum = std::numeric_limits<double>::lowest();
        for (const auto& point : m_points) {
            if (!(std::abs(point.x - m_nullValue) >= nullTolerance))
                continue;
            m_minimum = std::min(m_minimum, point.x);
            m_maximum = std::max(m_maximum, point.x);
            ++m_count;
        }
    }
    if (m_count == 0) {
        m_minimum = m_maximum = m_nullValue;
        m_mid = m_stdDev = 0.0;
        return;
    }
    const auto count = static_cast<double>(m_count);
    m_mid = (m_maximum - m_minimum) / count;
    double squares = 0.0;
    for (const auto& point : m_points)
        squares += (point.x - m_mid) * (point.x - m_mid);
    m_stdDev = std::sqrt(squares / count);
}

double NORLEX_lasCurve::getMinimum() const {
    return m_minimum;
}

double NORLEX_lasCurve::getMaximum() const {
    return m_maximum;
}

double NORLEX_lasCurve::getMid() const {
    return m_mid;
}

double NORLEX_lasCurve::getStdDev() const {
    return m_stdDev;
}

std::size_t NORLEX_lasCurve::getCount() const {
    return m_count;
}

double NORLEX_lasCurve::getTop() const {
    return m_points.empty() ? 0.0 : m_points.front().y;
}

double NORLEX_lasCurve::getBot() const {
    return m_points.empty() ? 0.0 : m_points.back().y;
}

double NORLEX_lasCurve::getNodata() const {
    return m_nullValue;
}

void NORLEX_lasCurve::setNodata(double nullValue) {
    m_nullValue = nullValue;
}

#include "trajectory/arc_section.h"

#include "platform/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double straightTurn = 1e-9; // radians; below it the arc is a straight line
constexpr double sameDepth = 1e-9;    // metres

double dot(const direction3& a, const direction3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// Exact for small angles too, where the arc cosine of the product is not.
double angleBetween(const direction3& a, const direction3& b) {
    double chord = 0.0;
    for (std::size_t i = 0; i < 3; ++i)
        chord += (a[i] - b[i]) * (a[i] - b[i]);
    return 2.0 * std::asin(std::min(1.0, std::sqrt(chord) / 2.0));
}

} // namespace

direction3 directionOf(double angle, double azimuth) {
    const double inclination = ts_grd2rad(angle);
    const double bearing = ts_grd2rad(azimuth);
    return {std::sin(inclination) * std::cos(bearing),
            std::sin(inclination) * std::sin(bearing),
            std::cos(inclination)};
}

arcSection::arcSection(const direction3& upper, const direction3& lower, double length)
    : m_upper(upper), m_length(length), m_turn(angleBetween(upper, lower)) {
    const double along = dot(upper, lower);
    const double across = std::sin(m_turn);
    if (across > straightTurn)
        for (std::size_t i = 0; i < 3; ++i)
            m_normal[i] = (lower[i] - along * upper[i]) / across;
}

// By the radius and the turn; of a straight line the length itself.
direction3 arcSection::offset() const {
    direction3 out = m_upper;
    const bool isStraight = m_turn < straightTurn;
    const double radius = isStraight ? 0.0 : m_length / m_turn;
    for (std::size_t i = 0; i < 3; ++i)
        out[i] =
            isStraight
                ? m_upper[i] * m_length
                : radius * (m_upper[i] * std::sin(m_turn) + m_normal[i] * (1.0 - std::cos(m_turn)));
    return out;
}

std::vector<double> arcSection::straightDepthsAt(double down) const {
    if (std::abs(m_upper[2]) < 1e-12)
        return std::abs(down) <= sameDepth ? std::vector{0.0, m_length} : std::vector<double>{};
    const double at = down / m_upper[2];
    if (at < -sameDepth || at > m_length + sameDepth)
        return {};
    return {std::clamp(at, 0.0, m_length)};
}

// The depth along the arc is R (a sin t + b (1 - cos t)), which is R (c sin(t - p) + b) with
// c = |(a, b)| and p = atan2(b, a): two solutions a turn.
std::vector<double> arcSection::depthsAt(double down) const {
    if (m_turn < straightTurn)
        return straightDepthsAt(down);
    const double a = m_upper[2];
    const double b = m_normal[2];
    const double radius = m_length / m_turn;
    const double amplitude = std::hypot(a, b);
    if (amplitude < 1e-12) // an arc in a level plane
        return std::abs(down) <= sameDepth ? std::vector{0.0, m_length} : std::vector<double>{};
    const double sine = (down / radius - b) / amplitude;
    if (std::abs(sine) > 1.0 + 1e-12)
        return {};
    const double phase = std::atan2(b, a);
    const double first = std::asin(std::clamp(sine, -1.0, 1.0));
    std::vector<double> out;
    for (const double root : {first, std::numbers::pi - first})
        for (const double turned : {-2.0 * std::numbers::pi, 0.0, 2.0 * std::numbers::pi}) {
            const double at = (root + phase + turned) * radius;
            if (at >= -1e-7 && at <= m_length + 1e-7)
                out.push_back(std::clamp(at, 0.0, m_length));
        }
    std::sort(out.begin(), out.end());
    return out;
}
